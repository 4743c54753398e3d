#pragma once

#include <array>
#include <string>

#include "platform/simple_elements.h"

namespace quorvale {

/// A list in report mode: three columns with headers.
class ListView : public PaintedElement {
public:
    using PaintedElement::PaintedElement;

    const std::array<std::u16string, 3>& Headers() const { return headers_; }
    void SetHeader(std::size_t column, std::u16string text) {
        Assign(headers_.at(column), std::move(text), "Header");
    }

    /// Lays the list over the control's other elements.
    void BringToFront() { Touch("Order"); }

private:
    std::array<std::u16string, 3> headers_;
};

}  // namespace quorvale
