#pragma once

#include <deque>
#include <string>
#include <utility>

#include "base/errors.h"
#include "platform/element.h"

namespace quorvale {

/// An array of elements with consecutive indexes. Most arrays have an element 0 from the start: it
/// is designed into the surface and is the model that every further element copies. Elements keep
/// their address while they exist.
template <class E>
class ElementArray {
public:
    /// An array whose element 0 exists.
    static ElementArray WithModel(E model) {
        ElementArray array(model.Name(), 0);
        model.BecomeCopyAt(0);
        model.SetVisible(true);
        array.elements_.push_back(std::move(model));
        return array;
    }

    /// An array that is empty at first; its first element gets the index `lower`.
    ElementArray(std::string name, int lower) : name_(std::move(name)), lower_(lower) {}

    /// The lowest index, also of an empty array.
    int LowerBound() const { return lower_; }
    /// The highest index; below `LowerBound()` when the array is empty.
    int UpperBound() const { return lower_ + static_cast<int>(elements_.size()) - 1; }
    /// Whether there is an element of that index.
    bool Has(int index) const { return index >= lower_ && index <= UpperBound(); }

    /// Index error where there is no such element.
    E& operator[](int index) { return elements_[Place(index)]; }
    /// The same for looking at it.
    const E& operator[](int index) const { return elements_[Place(index)]; }

    /// The element of the lowest index, as with every container.
    auto begin() { return elements_.begin(); }
    /// Behind the one of the highest index.
    auto end() { return elements_.end(); }
    /// For looking at them.
    auto begin() const { return elements_.begin(); }
    /// For looking at them.
    auto end() const { return elements_.end(); }

    /// Adds one element at the end: a hidden copy of the first one, or a new one in an empty array.
    E& Load() {
        elements_.push_back(elements_.empty() ? E(name_, lower_) : elements_.front());
        elements_.back().BecomeCopyAt(UpperBound());
        return elements_.back();
    }

    /// Removes every element above `index`.
    void UnloadAbove(int index) {
        while (UpperBound() > index) elements_.pop_back();
    }

private:
    std::size_t Place(int index) const {
        if (!Has(index)) {
            throw ControlError(ErrorKind::Index,
                               "There is no " + name_ + "(" + std::to_string(index) + ")");
        }
        return static_cast<std::size_t>(index - lower_);
    }

    std::string name_;
    int lower_;
    std::deque<E> elements_;
};

}  // namespace quorvale
