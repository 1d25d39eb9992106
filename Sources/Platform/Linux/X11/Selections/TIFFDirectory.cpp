#include "X11/Selections/TIFFDirectory.h"

#include <algorithm>

namespace tessel {

namespace {

enum Tag : std::uint64_t {
    imageWidth = 256,
    imageLength = 257,
    bitsPerSample = 258,
    samplesPerPixel = 277,
    tileWidth = 322,
    tileLength = 323,
    extraSamples = 338,
};

constexpr std::size_t entryBytes = 12;
/// Where the value of an entry stands, or the offset of its values when they do not fit.
constexpr std::size_t valueInEntry = 8;
constexpr std::uint64_t shortType = 3;
constexpr std::size_t shortBytes = 2;
constexpr std::size_t longBytes = 4;

class NumberReader {
public:
    explicit NumberReader(std::string_view bytes)
        : bytes_(bytes)
        , isLittleEndian_(bytes.starts_with('I'))
    {}
    bool isLittleEndian() const { return isLittleEndian_; }
    bool has(std::size_t offset, std::size_t length) const
    {
        return offset <= bytes_.size() && length <= bytes_.size() - offset;
    }
    /// 0 where there is nothing.
    std::uint64_t number(std::size_t offset, std::size_t length) const
    {
        std::uint64_t value = 0;
        for (std::size_t index = 0; index < length && has(offset, length); ++index) {
            const std::size_t at = offset + (isLittleEndian_ ? length - 1 - index : index);
            value = (value << 8) | static_cast<std::uint8_t>(bytes_[at]);
        }
        return value;
    }

private:
    std::string_view bytes_;
    bool isLittleEndian_;
};

/// The numbers of one entry, which are short or long ones.
class Entry {
public:
    Entry(const NumberReader& reader, std::size_t offset)
        : reader_(reader)
        , tag_(reader.number(offset, shortBytes))
        , numberBytes_(reader.number(offset + 2, shortBytes) == shortType ? shortBytes : longBytes)
        , count_(reader.number(offset + 4, longBytes))
        , valuesOffset_(offset + valueInEntry)
    {
        if (count_ > longBytes / numberBytes_)
            valuesOffset_ = reader.number(valuesOffset_, longBytes);
    }
    std::uint64_t tag() const { return tag_; }
    std::size_t valuesOffset() const { return valuesOffset_; }
    std::uint64_t first() const { return reader_.number(valuesOffset_, numberBytes_); }
    std::uint64_t largest() const
    {
        std::uint64_t largest = 0;
        constexpr std::uint64_t mostSamples = 64; // More are refused anyway.
        for (std::uint64_t index = 0; index < std::min(count_, mostSamples); ++index)
            largest = std::max(largest, reader_.number(valuesOffset_ + index * numberBytes_, numberBytes_));
        return largest;
    }

private:
    const NumberReader& reader_;
    std::uint64_t tag_;
    std::size_t numberBytes_;
    std::uint64_t count_;
    std::size_t valuesOffset_;
};

TIFFDirectory::Alpha alphaOf(std::uint64_t extraSample)
{
    using Alpha = TIFFDirectory::Alpha;
    return extraSample == 1 ? Alpha::associated : extraSample == 2 ? Alpha::unassociated : Alpha::unspecified;
}

void takeOver(TIFFDirectory& directory, const Entry& entry, bool isLittleEndian)
{
    switch (entry.tag()) {
    case Tag::imageWidth:
        directory.width = entry.first();
        return;
    case Tag::imageLength:
        directory.height = entry.first();
        return;
    case Tag::bitsPerSample:
        directory.bitsPerSample = entry.largest();
        return;
    case Tag::samplesPerPixel:
        directory.samplesPerPixel = entry.first();
        return;
    case Tag::tileWidth:
        directory.tileWidth = entry.first();
        return;
    case Tag::tileLength:
        directory.tileHeight = entry.first();
        return;
    case Tag::extraSamples:
        directory.alpha = alphaOf(entry.first());
        directory.alphaOffset = entry.valuesOffset() + (isLittleEndian ? 0 : shortBytes - 1);
        return;
    default:
        return;
    }
}

} // namespace

std::optional<TIFFDirectory> TIFFDirectory::firstOf(std::string_view encoded)
{
    const NumberReader reader(encoded);
    const std::size_t start = reader.number(4, longBytes);
    const std::uint64_t count = reader.number(start, shortBytes);
    if (count == 0 || !reader.has(start + shortBytes, count * entryBytes))
        return std::nullopt;
    TIFFDirectory directory;
    for (std::uint64_t index = 0; index < count; ++index) {
        const Entry entry(reader, start + shortBytes + index * entryBytes);
        takeOver(directory, entry, reader.isLittleEndian());
    }
    return directory;
}

} // namespace tessel
