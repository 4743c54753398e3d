#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/units.h"

namespace quorvale {

/// Anything a host hands to the control to keep and give back: it must outlive its last user, so
/// it is always shared.
class Object {
public:
    virtual ~Object() = default;
};

/// A picture as the core sees it: a size and a name. Surfaces derive from it to add the pixels.
class Picture : public Object {
public:
    Picture(std::string name, Twips width, Twips height)
        : name_(std::move(name)), width_(width), height_(height) {}

    /// For people and logs; nothing is looked up by it.
    const std::string& Name() const { return name_; }
    Twips Width() const { return width_; }
    Twips Height() const { return height_; }

private:
    std::string name_;
    Twips width_;
    Twips height_;
};

using PicturePtr = std::shared_ptr<const Picture>;

/// A picture that comes as SVG text: a surface draws it at whatever scale it needs.
class SvgPicture final : public Picture {
public:
    SvgPicture(std::string name, std::string svg, Twips width, Twips height)
        : Picture(std::move(name), width, height), svg_(std::move(svg)) {}

    const std::string& Svg() const { return svg_; }

private:
    std::string svg_;
};

}  // namespace quorvale
