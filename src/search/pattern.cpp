#include "search/pattern.h"

#include <algorithm>

#include "base/errors.h"

namespace quorvale {

Pattern::Pattern(std::u16string_view pattern) {
    while (valid_ && !pattern.empty()) {
        const char16_t unit = pattern.front();
        std::size_t read = 1;
        if (unit == u'*') {
            tokens_.push_back({Kind::AnyRun});
        } else if (unit == u'?') {
            tokens_.push_back({Kind::AnyOne});
        } else if (unit == u'#') {
            tokens_.push_back({Kind::Digit});
        } else if (unit == u'[') {
            read += ReadList(pattern.substr(1));
        } else {
            tokens_.push_back({Kind::Literal, unit});
        }
        pattern.remove_prefix(read);
    }
}

/// Reads a list from behind its "[" to its "]" and says how many units that were.
std::size_t Pattern::ReadList(std::u16string_view list) {
    const std::size_t end = list.find(u']');
    valid_ = end != list.npos;
    if (!valid_ || end == 0) return end + 1;
    const bool negated = list.front() == u'!';
    const std::u16string_view members = list.substr(negated ? 1 : 0, negated ? end - 1 : end);
    if (members.empty()) {
        tokens_.push_back({Kind::Literal, u'!'});
        return end + 1;
    }
    const auto first = static_cast<std::uint32_t>(ranges_.size());
    valid_ = ReadRanges(members);
    const auto count = static_cast<std::uint32_t>(ranges_.size()) - first;
    tokens_.push_back({negated ? Kind::NoneOf : Kind::OneOf, 0, first, count});
    return end + 1;
}

bool Pattern::ReadRanges(std::u16string_view members) {
    const std::size_t last = members.size() - 1;
    const auto isMember = [&](std::size_t place) {
        return members[place] != u'-' || place == 0 || place == last;
    };
    for (std::size_t at = 0; at <= last; ++at) {
        if (!isMember(at)) return false;
        const char16_t from = members[at];
        const bool isRange = at + 2 <= last && members[at + 1] == u'-';
        if (isRange) {
            at += 2;
            if (!isMember(at) || members[at] < from) return false;
        }
        ranges_.push_back({from, members[at]});
    }
    return true;
}

bool Pattern::Has(const Token& token, char16_t unit) const {
    switch (token.What) {
        case Kind::Literal:
            return unit == token.Unit;
        case Kind::AnyOne:
            return true;
        case Kind::AnyRun:
            return false;
        case Kind::Digit:
            return unit >= u'0' && unit <= u'9';
        case Kind::OneOf:
        case Kind::NoneOf:
            break;
    }
    bool within = false;
    for (std::uint32_t i = 0; i < token.Ranges; ++i) {
        const Range& range = ranges_[token.FirstRange + i];
        within = within || (unit >= range.From && unit <= range.To);
    }
    return within == (token.What == Kind::OneOf);
}

/// The first unit from `from` on at which the token may fit.
template <class Unit>
std::size_t Pattern::FirstFit(std::size_t token, std::span<const Unit> text, std::size_t from,
                              const UnitKeys& capitals) const {
    if (tokens_[token].What != Kind::Literal) return from;
    const char16_t wanted = tokens_[token].Unit;
    while (from < text.size() && capitals[text[from]] != wanted) ++from;
    return from;
}

// Only the last run has to be made longer when something does not fit: if a longer earlier one led
// to a match, a longer last one would too.
template <class Unit>
bool Pattern::MatchesUnits(std::span<const Unit> text, const UnitKeys& capitals) const {
    if (!valid_) throw ControlError(ErrorKind::InvalidValue, "The pattern is not valid");
    constexpr auto none = static_cast<std::size_t>(-1);
    std::size_t token = 0;
    std::size_t unit = 0;
    std::size_t behindRun = none;
    std::size_t runEnd = 0;
    while (unit < text.size()) {
        if (token < tokens_.size() && tokens_[token].What == Kind::AnyRun) {
            behindRun = ++token;
            // The rest of the text is the run's.
            if (behindRun == tokens_.size()) return true;
            unit = runEnd = FirstFit(behindRun, text, unit, capitals);
        } else if (token < tokens_.size() && Has(tokens_[token], capitals[text[unit]])) {
            ++token;
            ++unit;
        } else if (behindRun != none) {
            token = behindRun;
            unit = runEnd = FirstFit(behindRun, text, runEnd + 1, capitals);
        } else {
            return false;
        }
    }
    while (token < tokens_.size() && tokens_[token].What == Kind::AnyRun) ++token;
    return token == tokens_.size();
}

bool Pattern::Matches(std::span<const char16_t> text, const UnitKeys& capitals) const {
    return MatchesUnits(text, capitals);
}

bool Pattern::Matches(std::span<const std::uint8_t> text, const UnitKeys& capitals) const {
    return MatchesUnits(text, capitals);
}

std::vector<std::u16string> Pattern::Literals() const {
    std::vector<std::u16string> runs;
    bool within = false;
    for (const Token& token : tokens_) {
        const bool literal = token.What == Kind::Literal;
        if (literal && !within) runs.emplace_back();
        if (literal) runs.back().push_back(token.Unit);
        within = literal;
    }
    return runs;
}

bool Pattern::AsksForLiteralsOnly() const {
    const auto isRun = [](const Token& token) { return token.What == Kind::AnyRun; };
    const auto isEither = [&](const Token& token) {
        return isRun(token) || token.What == Kind::Literal;
    };
    return valid_ && !tokens_.empty() && isRun(tokens_.front()) && isRun(tokens_.back()) &&
           std::all_of(tokens_.begin(), tokens_.end(), isEither);
}

}  // namespace quorvale
