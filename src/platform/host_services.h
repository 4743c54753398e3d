#pragma once

#include <memory>

#include "platform/case_rules.h"
#include "platform/container.h"
#include "platform/files.h"
#include "platform/memory.h"
#include "platform/message_box.h"
#include "platform/search_progress.h"
#include "platform/text_metrics.h"
#include "platform/xml_service.h"

namespace quorvale {

/// The outside world of one control. All of it must be there, except where it says so; a host that
/// needs no part of its own takes the headless library's or the widget's.
struct HostServices {
    std::shared_ptr<TextMetrics> Metrics;    ///< how wide texts are: as the surface paints them
    std::shared_ptr<FileSystem> Files;       ///< where documents and journals are
    std::shared_ptr<XmlService> Xml;         ///< what reads and writes journals
    std::shared_ptr<BlockMemory> Memory;     ///< where the text of documents lies
    std::shared_ptr<Container> Site;         ///< the form around the control
    std::shared_ptr<MessageBoxes> Messages;  ///< what asks and warns the user

    /// Which letters the search takes for the same; null for Unicode's.
    std::shared_ptr<CaseRules> Case;
    /// Hears of long searches; null for nobody.
    std::shared_ptr<SearchProgress> Progress;

    /// The user's interface language: 1041 Japanese, 1042 Korean, any other shows English.
    int LanguageId = 1033;
};

}  // namespace quorvale
