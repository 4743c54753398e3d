#include "document/text_loading.h"

#include <algorithm>
#include <limits>
#include <new>
#include <string>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "base/utf8.h"
#include "document/encodings.h"
#include "document/text_builder.h"
#include "document/utf8_decoding.h"

namespace quorvale {

namespace {

constexpr std::size_t finalBreakUnits = 2;

// The place behind the final line break is a line start too, and has to fit into 32 bits.
constexpr std::uint64_t mostUnits = std::numeric_limits<std::int32_t>::max() - 1 - finalBreakUnits;

/// Small enough that what was read is still in the processor's cache when it is looked at.
constexpr std::size_t pieceBytes = std::size_t{1} << 18;
static_assert(TextBuilder::BlockUnits % pieceBytes == 0);

std::size_t RequireFitting(std::uint64_t units) {
    if (units > mostUnits) throw ControlError(ErrorKind::Overflow, "The text is too long");
    return static_cast<std::size_t>(units);
}

/// Puts the place behind every line feed of `units` into the table; `first` is the 0-based index of
/// the first unit in the text.
template <class Unit>
bool AppendStarts(LineStarts& starts, std::span<const Unit> units, std::size_t first,
                  LineKernel kernel) {
    bool ascii = true;
    while (!units.empty()) {
        const LineScan scan =
            ScanLines(units, static_cast<std::int32_t>(first + 2), starts.Room(), kernel);
        starts.Commit(scan.Found);
        ascii = ascii && scan.Ascii;
        units = units.subspan(scan.Scanned);
        first += scan.Scanned;
    }
    return ascii;
}

/// How many entries of the table are at most `limit`.
std::int32_t EntriesUpTo(const LineStarts& starts, std::size_t limit) {
    std::int32_t low = 0;
    std::int32_t high = starts.Count();
    while (low < high) {
        const std::int32_t middle = low + (high - low + 1) / 2;
        if (static_cast<std::size_t>(starts[middle]) <= limit) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    return low;
}

/// One reading of a stream. While bytes arrive, `length_` counts them; they stand in the builder's
/// narrow block, where most of them simply stay as units.
class Reading {
public:
    Reading(ReadStream& stream, Encoding encoding, BlockMemory& memory, LineKernel kernel)
        : stream_(stream),
          encoding_(encoding),
          kernel_(kernel),
          size_(RequireFitting(stream.Size())),
          builder_(memory, size_ + finalBreakUnits),
          starts_(builder_.MakeLineStarts()) {
        starts_.Append(1);
    }

    LoadedText Run() {
        ReadPieces();
        DecideEncoding();
        if (encoding_ == Encoding::Utf8 && firstBeyondAscii_ != nowhere) DecodeUtf8();
        PutFinalBreak();
        starts_.Finish();
        return {builder_.Take(length_), std::move(starts_), encoding_};
    }

private:
    static constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t blockUnits = TextBuilder::BlockUnits;

    static std::size_t BlockStart(std::size_t index) { return index - index % blockUnits; }

    std::span<const std::uint8_t> BytesFrom(std::size_t from) {
        return {builder_.Bytes() + from, length_ - from};
    }

    /// A piece ends where a block ends, whatever the stream hands out at a time.
    void ReadPieces() {
        while (length_ < size_) {
            const std::size_t ofBlock = blockUnits - length_ % blockUnits;
            const std::size_t wanted = std::min({pieceBytes, ofBlock, size_ - length_});
            auto* const to = reinterpret_cast<std::byte*>(builder_.Bytes() + length_);
            auto got = stream_.Read(to, wanted);
            if (!got) RaiseFileFailure(got.Failure());
            if (*got > wanted) RaiseFileFailure({"read", {}, "more came than was asked for"});
            if (*got == 0) return;
            const std::size_t from = length_;
            length_ += *got;
            LookAtPiece(from);
        }
    }

    void LookAtPiece(std::size_t from) {
        const bool ascii = AppendStarts(starts_, BytesFrom(from), from, kernel_);
        if (encoding_ == Encoding::Windows1252) TranslateWestern(from, ascii);
        if (encoding_ == Encoding::Automatic) Validate(from, ascii);
        if (!ascii && firstBeyondAscii_ == nowhere) {
            firstBeyondAscii_ = from + FirstBeyondAscii(BytesFrom(from));
        }
    }

    /// Goes on where the valid bytes end, so that a character may lie across two pieces.
    void Validate(std::size_t from, bool ascii) {
        if (!isUtf8_) return;
        if (ascii && valid_ == from) {
            valid_ = length_;
            return;
        }
        const Utf8Prefix prefix = ValidUtf8Prefix(BytesFrom(valid_));
        valid_ += prefix.Valid;
        isUtf8_ = valid_ == length_ || prefix.Cut;
    }

    void DecideEncoding() {
        if (encoding_ != Encoding::Automatic) return;
        encoding_ = isUtf8_ && valid_ == length_ ? Encoding::Utf8 : Encoding::SingleByte;
    }

    /// The Western code page has a unit per byte, but some of its units do not fit into a byte.
    void TranslateWestern(std::size_t from, bool ascii) {
        const std::size_t blockStart = BlockStart(from);
        const std::span<const std::uint8_t> bytes = BytesFrom(from);
        char16_t* units = builder_.WideBlock(from / blockUnits);
        if (units == nullptr) {
            const auto special = [](std::uint8_t byte) { return FromWindows1252(byte) != byte; };
            if (ascii || std::none_of(bytes.begin(), bytes.end(), special)) return;
            units = Widen(from, size_ - blockStart);
        }
        std::transform(bytes.begin(), bytes.end(), units + (from - blockStart), FromWindows1252);
    }

    /// Widens the block that holds the unit at `index` and all units in front of it in the block.
    /// `most` is the number of units that the block would hold if it were the last.
    char16_t* Widen(std::size_t index, std::size_t most) {
        const std::size_t capacity = std::min(blockUnits, most + finalBreakUnits);
        return builder_.Widen(index / blockUnits, index % blockUnits, capacity);
    }

    /// Everything in front of the first character beyond ASCII is as it should be. From there on
    /// units move to the front, and so do the line starts.
    void DecodeUtf8() {
        Utf8Decoder decoder(BytesFrom(firstBeyondAscii_));
        length_ = firstBeyondAscii_;
        narrowEnd_ = BlockStart(length_);
        starts_.Truncate(EntriesUpTo(starts_, length_ + 1));
        while (!decoder.AtEnd()) DecodeBlock(decoder);
    }

    /// Decodes up to the end of the block that `length_` lies in.
    void DecodeBlock(Utf8Decoder& decoder) {
        const std::size_t first = length_;
        const std::size_t room = blockUnits - first % blockUnits;
        std::uint8_t* const bytes = builder_.Bytes();
        length_ += decoder.DecodeNarrow(bytes + first, room);
        if (length_ == first + room || decoder.AtEnd()) {
            AppendStarts(starts_, BytesFrom(first), first, kernel_);
            narrowEnd_ = length_;
            return;
        }
        const std::size_t blockStart = BlockStart(first);
        // No byte makes more than one unit; one may be left of a pair that began in the last block.
        const std::size_t most = length_ - blockStart + decoder.Rest().size() + 1;
        char16_t* const units = Widen(length_, most);
        length_ += decoder.DecodeWide(units + (length_ - blockStart), first + room - length_);
        const std::span<const char16_t> wide(units + (first - blockStart), length_ - first);
        AppendStarts(starts_, wide, first, kernel_);
        builder_.Discard(narrowEnd_, static_cast<std::size_t>(decoder.Rest().data() - bytes));
    }

    void PutFinalBreak() {
        builder_.Put(length_++, '\r');
        builder_.Put(length_++, '\n');
        starts_.Append(static_cast<std::int32_t>(length_ + 1));
    }

    ReadStream& stream_;
    Encoding encoding_;
    LineKernel kernel_;
    std::size_t size_;
    TextBuilder builder_;
    LineStarts starts_;
    std::size_t length_ = 0;
    std::size_t firstBeyondAscii_ = nowhere;

    // For `Automatic`: so many bytes are valid UTF-8; whether those behind them may still be.
    std::size_t valid_ = 0;
    bool isUtf8_ = true;

    // While decoding: the end of the last narrow block.
    std::size_t narrowEnd_ = 0;
};

template <class Work>
LoadedText WithinMemory(Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        throw ControlError(ErrorKind::OutOfMemory, "Not enough memory for the text");
    }
}

}  // namespace

LoadedText ReadText(ReadStream& stream, Encoding encoding, BlockMemory& memory, LineKernel kernel) {
    return WithinMemory([&] { return Reading(stream, encoding, memory, kernel).Run(); });
}

LoadedText TextFromString(std::u16string_view value) {
    RequireFitting(value.size());
    return WithinMemory([&] {
        LoadedText loaded{TextStore::FromString(value, u"\r\n"), {}, Encoding::Utf8};
        loaded.Starts.Append(1);
        const std::span<const char16_t> units(value.data(), value.size());
        AppendStarts(loaded.Starts, units, 0, BestLineKernel());
        loaded.Starts.Append(loaded.Text.Length() + 1);
        return loaded;
    });
}

void RaiseFileFailure(const FileFailure& failure) {
    throw ControlError(ErrorKind::File,
                       failure.Operation + " '" + ToUtf8(failure.Name) + "': " + failure.Reason);
}

}  // namespace quorvale
