#include "control/dispatch_call.h"

#include <type_traits>
#include <variant>

#include "base/errors.h"
#include "base/integers.h"

namespace quorvale {

namespace {

[[noreturn]] void RaiseNoReference(const char* wanted) {
    throw ControlError(ErrorKind::TypeMismatch,
                       std::string("The value is not a reference to ") + wanted);
}

PicturePtr ToPicture(const Variant& value) {
    if (const auto* picture = std::get_if<PicturePtr>(&value)) return *picture;
    const auto* object = std::get_if<std::shared_ptr<Object>>(&value);
    if (object == nullptr) RaiseNoReference("a picture");
    auto picture = std::dynamic_pointer_cast<const Picture>(*object);
    if (picture == nullptr && *object != nullptr) RaiseNoReference("a picture");
    return picture;
}

std::shared_ptr<Object> ToObject(const Variant& value) {
    if (const auto* object = std::get_if<std::shared_ptr<Object>>(&value)) return *object;
    const auto* picture = std::get_if<PicturePtr>(&value);
    if (picture == nullptr) RaiseNoReference("an object");
    // A picture is an object like any other; the control hands it back and never changes it.
    return std::const_pointer_cast<Picture>(*picture);
}

quorvale::Font ToFont(const Variant& value) {
    if (const auto* font = std::get_if<quorvale::Font>(&value)) return *font;
    throw ControlError(ErrorKind::TypeMismatch, "The value is not a font");
}

/// Puts a number into a variable that keeps its type.
template <class Number>
struct Storing {
    Variant& Into;
    Number Value;

    void operator()(std::monostate) const { Into = Value; }
    void operator()(bool) const { Into = Value != 0; }
    void operator()(std::int16_t) const { Into = ToInt16(static_cast<double>(Value)); }
    void operator()(std::int32_t) const { Into = ToInt32(static_cast<double>(Value)); }
    void operator()(float) const { Into = static_cast<float>(Value); }
    void operator()(double) const { Into = static_cast<double>(Value); }
    void operator()(const std::u16string&) const { Into = ToString(Variant(Value)); }
    // A reference was refused when the argument was read.
    void operator()(const quorvale::Font&) const {}
    void operator()(const std::shared_ptr<Object>&) const {}
    void operator()(const PicturePtr&) const {}
};

}  // namespace

template <class Read>
auto DispatchCall::Reading(std::size_t index, Read read) const {
    try {
        return read(arguments_[index]);
    } catch (const ControlError& error) {
        const bool value = index >= member_.Parameters.size();
        const std::string_view name = value ? "new value" : member_.Parameters[index].Name;
        throw ControlError(error.Kind(), "Argument " + std::to_string(index + 1) + " (" +
                                             std::string(name) + ") of " +
                                             std::string(member_.Name) + ": " + error.what());
    }
}

std::int32_t DispatchCall::Long(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToLong(value); });
}

std::int16_t DispatchCall::Integer(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToShort(value); });
}

float DispatchCall::Single(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToSingle(value); });
}

bool DispatchCall::Boolean(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToBoolean(value); });
}

std::u16string DispatchCall::String(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToString(value); });
}

quorvale::Colour DispatchCall::Colour(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToColour(value); });
}

quorvale::Font DispatchCall::Font(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToFont(value); });
}

PicturePtr DispatchCall::Picture(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToPicture(value); });
}

std::shared_ptr<Object> DispatchCall::ObjectReference(std::size_t index) const {
    return Reading(index, [](const Variant& value) { return ToObject(value); });
}

template <class Number>
void DispatchCall::Write(std::size_t index, Number value) {
    Reading(index, [&](Variant& into) { std::visit(Storing<Number>{into, value}, Variant(into)); });
}

void DispatchCall::WriteBack(std::size_t index, std::int32_t value) { Write(index, value); }
void DispatchCall::WriteBack(std::size_t index, float value) { Write(index, value); }

}  // namespace quorvale
