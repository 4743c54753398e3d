#pragma once

#include <QHash>
#include <QTranslator>
#include <span>

namespace quorvale {

/// A text of the viewer in its three languages; the English one stands in the source.
struct ViewerText {
    const char* English;
    const char* Japanese;
    const char* Korean;
};

/// What menus and their entries say.
std::span<const ViewerText> menuTexts();
/// What messages, questions and the status bar say.
std::span<const ViewerText> messageTexts();
/// What searching in many files says.
std::span<const ViewerText> searchingTexts();
/// What Qt says on the buttons of its dialogs.
std::span<const ViewerText> buttonTexts();

/// Gives the viewer's texts in another language than English, wherever they stand.
class ViewerTranslator final : public QTranslator {
public:
    enum Into { Japanese, Korean };

    explicit ViewerTranslator(Into language);

    bool isEmpty() const override { return texts_.isEmpty(); }
    QString translate(const char* context, const char* text, const char* disambiguation,
                      int number) const override;

private:
    QHash<QByteArray, const char*> texts_;
};

}  // namespace quorvale
