#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/export.h"
#include "base/units.h"

namespace quorvale {

/// Anything a host hands to the control to keep and give back: it must outlive its last user, so
/// it is always shared.
class QUORVALE_CORE_EXPORT Object {
public:
    virtual ~Object() = default;
};

/// A picture as the core sees it: a size and a name. Surfaces derive from it to add the pixels.
class QUORVALE_CORE_EXPORT Picture : public Object {
public:
    /// A picture of that size; a derived class has the pixels.
    Picture(std::string name, Twips width, Twips height)
        : name_(std::move(name)), width_(width), height_(height) {}

    /// For people and logs; nothing is looked up by it.
    const std::string& Name() const { return name_; }
    /// In twips.
    Twips Width() const { return width_; }
    /// In twips.
    Twips Height() const { return height_; }

private:
    std::string name_;
    Twips width_;
    Twips height_;
};

using PicturePtr = std::shared_ptr<const Picture>;

/// A picture that comes as SVG text: a surface draws it at whatever scale it needs.
class QUORVALE_CORE_EXPORT SvgPicture final : public Picture {
public:
    /// The SVG text is taken as it is; what a surface cannot draw stays blank.
    SvgPicture(std::string name, std::string svg, Twips width, Twips height)
        : Picture(std::move(name), width, height), svg_(std::move(svg)) {}

    /// The whole SVG document, as UTF-8.
    const std::string& Svg() const { return svg_; }

private:
    std::string svg_;
};

}  // namespace quorvale
