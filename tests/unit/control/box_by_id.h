#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/errors.h"
#include "control/dispatch.h"
#include "control/member_table.h"
#include "control/quorvale_box.h"
#include "plain_services.h"
#include "platform/memory_files.h"

namespace quorvale {

using Arguments = std::vector<Variant>;

inline Variant Long(std::int32_t value) { return value; }
inline Variant Text(const char16_t* value) { return std::u16string(value); }

/// A control that shows a hundred lines "L1" to "L100", thirty at a time.
class BoxById : public testing::Test {
protected:
    BoxById() {
        files_->Put(u"three.txt", "A\r\nB\r\nC");
        box_ = std::make_unique<QuorvaleBox>(PlainServices(files_));
        box_->InitProperties();
        box_->Elements().Resize(12000, 7560);
        std::u16string lines;
        for (int number = 1; number <= 100; ++number) {
            const auto digits = std::to_string(number);
            if (number > 1) lines += u"\r\n";
            lines += u"L" + std::u16string(digits.begin(), digits.end());
        }
        box_->text(lines);
    }

    Variant Call(const char16_t* name, unsigned kinds, Arguments& arguments) {
        return Invoke(*box_, GetIdOfName(name), kinds, arguments);
    }
    Variant Call(const char16_t* name, unsigned kinds, Arguments&& arguments = {}) {
        return Call(name, kinds, arguments);
    }

    /// How the call fails; nothing when it does not.
    std::optional<ErrorKind> Failure(const char16_t* name, unsigned kinds, Arguments arguments) {
        try {
            Call(name, kinds, arguments);
        } catch (const ControlError& error) {
            description_ = error.what();
            return error.Kind();
        }
        return std::nullopt;
    }

    std::shared_ptr<MemoryFiles> files_ = std::make_shared<MemoryFiles>();
    std::unique_ptr<QuorvaleBox> box_;
    std::string description_;
};

}  // namespace quorvale
