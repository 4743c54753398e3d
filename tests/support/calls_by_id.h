#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "control/member_table.h"
#include "control/quorvale_box.h"

namespace quorvale {

/// Calls every member of a control by its id, in every way that is right and in many that are not,
/// and notes whatever comes out otherwise than it should. For any surface: the control must show
/// the lines "L1" to "L100", the first one at the top.
class CallsById {
public:
    explicit CallsById(QuorvaleBox& box) : box_(box) {}

    void CallRightly();
    void CallWrongly();

    /// One sentence each; none when all is well.
    const std::vector<std::string>& Faults() const { return faults_; }
    /// How many members were called in how many of their kinds.
    std::size_t KindsCalled() const { return called_.size(); }
    int RefusalsSeen() const { return refusals_; }

    /// A value that every member with such a parameter accepts.
    static Variant SomeValue(ValueType type);

private:
    using Arguments = std::vector<Variant>;

    static Variant Text(const char16_t* text) { return std::u16string(text); }
    static Variant Long(std::int32_t number) { return number; }

    static std::vector<std::pair<Variant, ErrorKind>> BadValues(ValueType type);
    static std::vector<unsigned> Kinds() { return {1, 2, 4, 8}; }

    void Expect(bool holds, const std::string& sentence) {
        if (!holds) faults_.push_back(sentence);
    }
    /// `after`: what the arguments hold afterwards, where that differs.
    void Right(const char16_t* name, unsigned kind, Arguments arguments, const Variant& result = {},
               std::optional<Arguments> after = {});
    void Refused(const MemberDescription& member, unsigned kind, Arguments arguments,
                 ErrorKind error);
    void CallWithBadArguments(const MemberDescription& member, unsigned kind);
    void CallAppearanceRightly();
    void CallTextRightly();
    std::vector<Variant> State();

    QuorvaleBox& box_;
    std::vector<std::string> faults_;
    std::set<std::pair<std::int32_t, unsigned>> called_;
    int refusals_ = 0;
};

}  // namespace quorvale
