#include "viewer/viewer_translator.h"

namespace quorvale {

ViewerTranslator::ViewerTranslator(Into language) {
    for (const auto& texts : {menuTexts(), messageTexts(), searchingTexts(), buttonTexts()}) {
        for (const ViewerText& text : texts) {
            const char* const translated = language == Japanese ? text.Japanese : text.Korean;
            texts_.insert(QByteArray::fromRawData(text.English, qsizetype(qstrlen(text.English))),
                          translated);
        }
    }
}

// A text means the same wherever it stands in the viewer.
QString ViewerTranslator::translate(const char*, const char* text, const char*, int) const {
    if (text == nullptr) return {};
    const auto found = texts_.find(QByteArray::fromRawData(text, qsizetype(qstrlen(text))));
    return found == texts_.end() ? QString() : QString::fromUtf8(*found);
}

}  // namespace quorvale
