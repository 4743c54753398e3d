#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/files.h"
#include "platform/host_services.h"
#include "platform/plain_xml.h"

namespace quorvale {

/// Every unit is 120 twips wide and every row 240 high, in any font.
class EvenMetrics final : public TextMetrics {
public:
    Twips Width(std::u16string_view text, const Font&) const override {
        return unit * static_cast<double>(text.size());
    }
    Twips Height(const Font&) const override { return 240; }
    std::size_t FirstWider(std::u16string_view text, const Font&, Twips x,
                           Precision) const override {
        std::size_t count = 1;
        while (count <= text.size() && unit * static_cast<double>(count) <= x) ++count;
        return count <= text.size() ? count : 0;
    }

private:
    static constexpr double unit = 120;
};

/// A host that asks for nothing and forgets what it is told.
class QuietContainer final : public Container {
public:
    bool UserMode() const override { return true; }
    std::u16string DisplayName() const override { return u"Box1"; }
    quorvale::Font Font() const override { return {.Name = u"Even"}; }
    void PropertyChanged(std::u16string_view) override {}
};

/// Answers every message with Cancel.
class CancelledMessages final : public MessageBoxes {
public:
    MessageAnswer Show(std::u16string_view, MessageStyle) override { return MessageAnswer::Cancel; }
};

/// The smallest outside world in which a control runs.
inline HostServices PlainServices(std::shared_ptr<FileSystem> files) {
    HostServices services;
    services.Metrics = std::make_shared<EvenMetrics>();
    services.Files = std::move(files);
    services.Xml = std::make_shared<PlainXml>();
    services.Memory = std::make_shared<PlainMemory>();
    services.Site = std::make_shared<QuietContainer>();
    services.Messages = std::make_shared<CancelledMessages>();
    return services;
}

}  // namespace quorvale
