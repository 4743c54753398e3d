#include "corrections/journal.h"

#include <utility>

namespace quorvale {

void Journal::Open(XmlDocumentPtr document) {
    XmlNodePtr root = document == nullptr ? nullptr : document->SelectSingleNode(u"corrections");
    // A document may have one root only: that of a file which is no journal has to go.
    if (root == nullptr) {
        document = CreateXmlDocument();
        root = CreateXmlElement(u"corrections");
        document->AppendChild(root);
    }
    ++state_.Changes;
    state_.JournalDocument = std::move(document);
    state_.JournalRoot = std::move(root);
}

void Journal::Drop() {
    ++state_.Changes;
    state_.JournalDocument.reset();
    state_.JournalRoot.reset();
    state_.Unreadable.reset();
    state_.OwnFiles.clear();
}

void Journal::AppendCorrection(UpdateRange range, std::u16string_view text) {
    Append(CreateUpdate(range, text));
}

void Journal::Append(XmlNodePtr update) {
    ++state_.Changes;
    state_.JournalRoot->AppendChild(std::move(update));
}

void Journal::Remove(const XmlNode& node) {
    if (!IsPart(node)) return;
    ++state_.Changes;
    node.ParentNode()->RemoveChild(node);
}

void Journal::RemoveAll() {
    ++state_.Changes;
    state_.JournalRoot->RemoveAllChildren();
}

bool Journal::IsPart(const XmlNode& node) const {
    const XmlNode* top = &node;
    while (top->ParentNode() != nullptr) top = top->ParentNode();
    return top != &node && top == state_.JournalDocument.get();
}

}  // namespace quorvale
