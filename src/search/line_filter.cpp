#include "search/line_filter.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>

#include "base/utf8.h"
#include "document/encodings.h"

namespace quorvale {

namespace {

bool IsSurrogate(char16_t unit) { return IsHighSurrogate(unit) || IsLowSurrogate(unit); }

/// What each byte's unit is compared by, in a form that has a unit per byte.
std::array<char16_t, 256> KeysOfBytes(LineForm form, const UnitKeys& keys) {
    std::array<char16_t, 256> ofBytes;
    for (std::size_t byte = 0; byte < ofBytes.size(); ++byte) {
        const auto unit = static_cast<std::uint8_t>(byte);
        ofBytes[byte] = keys[form == LineForm::Windows1252 ? FromWindows1252(unit) : unit];
    }
    return ofBytes;
}

/// Whether some unit from U+0080 to U+00FF has the key: alone a byte, in UTF-8 two.
bool IsOfHighByte(char16_t key, const UnitKeys& keys) {
    return std::find(keys.begin() + 0x80, keys.begin() + 0x100, key) != keys.begin() + 0x100;
}

/// The UTF-8 forms of all units that have the key.
std::vector<std::string> Utf8FormsOf(char16_t key, const UnitKeys& keys) {
    std::vector<std::string> forms;
    for (std::size_t unit = 0; unit < keys.size(); ++unit) {
        const auto code = static_cast<char16_t>(unit);
        if (keys[unit] == key && !IsSurrogate(code)) AppendUtf8(forms.emplace_back(), code);
    }
    return forms;
}

}  // namespace

class LineFilter::Sequences {
public:
    Sequences(const UnitKeys& keys, LineForm form, bool tabs)
        : keys_(keys), form_(form), tabs_(tabs), ofBytes_(KeysOfBytes(form, keys)) {}

    void Add(std::u16string_view run) {
        for (std::size_t at = 0; at < run.size(); ++at) {
            const char16_t key = run[at];
            // The text of a line has neither.
            if (key == u'\t' || key == u'\n') nothingMatches_ = true;
            if (IsOfHighByte(key, keys_)) coversSingleBytes_ = false;
            // The last one of a line is not part of its text.
            if (key == u'\r') isWhole_ = false;
            if (key == u' ' && tabs_) {
                Break();
            } else if (form_ != LineForm::Utf8) {
                AddByte(key);
            } else if (IsHighSurrogate(key) && at + 1 < run.size() && IsLowSurrogate(run[at + 1])) {
                AddPair(key, run[++at]);
            } else {
                AddUtf8(key);
            }
        }
        End();
    }

    bool NothingMatches() const { return nothingMatches_; }
    bool CoversSingleBytes() const { return coversSingleBytes_; }
    /// Whether nothing but what was added fits the sequences.
    bool IsWhole() const {
        const auto exact = [](const ByteNeedle& needle) { return needle.IsExact(); };
        return isWhole_ && std::all_of(ended_.begin(), ended_.end(), exact);
    }
    std::vector<ByteNeedle> Take() { return std::move(ended_); }

private:
    void End() {
        if (!current_.empty()) ended_.emplace_back(current_);
        current_.clear();
    }

    void Break() {
        isWhole_ = false;
        End();
    }

    void AddByte(char16_t key) {
        const auto set = ofBytes_.Of(key);
        if (!set) {
            nothingMatches_ = true;
        } else {
            current_.push_back(*set);
        }
    }

    /// Units of different lengths in bytes would shift what follows.
    void AddUtf8(char16_t key) {
        if (IsSurrogate(key)) return Break();
        auto [entry, isNew] = utf8Forms_.try_emplace(key);
        if (isNew) entry->second = Utf8FormsOf(key, keys_);
        const std::vector<std::string>& forms = entry->second;
        if (forms.empty()) {
            nothingMatches_ = true;
            return;
        }
        const std::size_t length = forms.front().size();
        for (const std::string& form : forms) {
            if (form.size() != length) return Break();
        }
        if (length > 1) isWhole_ = false;
        for (std::size_t place = 0; place < length; ++place) {
            std::vector<std::uint8_t> bytes;
            for (const std::string& form : forms) {
                bytes.push_back(static_cast<std::uint8_t>(form[place]));
            }
            current_.push_back(ByteSet::Around(bytes));
        }
    }

    void AddPair(char16_t high, char16_t low) {
        isWhole_ = false;
        std::string bytes;
        AppendUtf8(bytes, FromSurrogates(high, low));
        for (const char byte : bytes)
            current_.push_back(ByteSet::Of(static_cast<std::uint8_t>(byte)));
    }

    const UnitKeys& keys_;
    LineForm form_;
    bool tabs_;
    ByteSets ofBytes_;
    std::map<char16_t, std::vector<std::string>> utf8Forms_;
    std::vector<ByteSet> current_;
    std::vector<ByteNeedle> ended_;
    bool nothingMatches_ = false;
    bool isWhole_ = true;
    bool coversSingleBytes_ = true;
};

LineFilter::LineFilter(const LineQuery& query, LineForm form, bool tabs, SearchKernel kernel)
    : kernel_(kernel) {
    Sequences sequences(query.Keys(), form, tabs);
    for (const std::u16string& run : query.Literals()) sequences.Add(run);
    nothingMatches_ = sequences.NothingMatches();
    coversSingleBytes_ = form == LineForm::Utf8 && sequences.CoversSingleBytes();
    needlesAreAll_ = query.AsksForLiteralsOnly() && sequences.IsWhole();
    needles_ = sequences.Take();
}

PlaceScan LineFilter::Find(std::span<const std::uint8_t> bytes, std::size_t needle,
                           std::size_t from) const {
    const std::size_t size = needles_[needle].Size();
    if (from > bytes.size() || bytes.size() - from < size) return {Nowhere, false};
    const std::size_t places = bytes.size() - from - size + 1;
    PlaceScan scan = ScanForNeedle(bytes.data() + from, places, needles_[needle], kernel_);
    scan.Place = scan.Place == places ? Nowhere : from + scan.Place;
    return scan;
}

// Every needle is looked for behind the one before it, whole stretches at a time. Where it is found
// only in a later line, no line up to that one can match: the first needle is looked for again from
// the start of that line.
LineFilter::Hit LineFilter::Next(std::span<const std::uint8_t> bytes, std::size_t from) const {
    if (nothingMatches_ || from >= bytes.size()) return {};
    if (needles_.empty()) return {from, false};
    std::size_t first = 0;
    std::size_t behind = from;
    for (std::size_t next = 0; next < needles_.size();) {
        const PlaceScan scan = Find(bytes, next, behind);
        if (scan.Place == Nowhere) return {};
        const bool isFirst = next == 0;
        if (isFirst) first = scan.Place;
        // Where nearly everything fits the lines have to be looked at one by one.
        if (scan.GaveUp) return {first, false};
        const std::size_t lineStart =
            isFirst ? 0 : BehindLastLineFeed(bytes.subspan(behind, scan.Place - behind));
        behind = lineStart > 0 ? behind + lineStart : scan.Place + needles_[next].Size();
        next = lineStart > 0 ? 0 : next + 1;
    }
    return {first, needlesAreAll_};
}

}  // namespace quorvale
