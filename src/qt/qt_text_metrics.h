#pragma once

#include <memory>

#include "platform/text_metrics.h"
#include "qt/font_faces.h"

namespace quorvale {

/// Measures with the very advances that the rows are painted with.
class QtTextMetrics final : public TextMetrics {
public:
    explicit QtTextMetrics(std::shared_ptr<FontFaces> faces) : faces_(std::move(faces)) {}

    Twips Width(std::u16string_view text, const Font& font) const override;
    Twips Height(const Font& font) const override;
    std::size_t FirstWider(std::u16string_view text, const Font& font, Twips x,
                           Precision precision) const override;

private:
    std::shared_ptr<FontFaces> faces_;
};

}  // namespace quorvale
