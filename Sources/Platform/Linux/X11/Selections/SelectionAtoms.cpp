#include "X11/Selections/SelectionAtoms.h"

#include <algorithm>

namespace tessel {

namespace {

using Atoms = SelectionAtoms;

constexpr Atoms::Name knownNames[] = {
    {&Atoms::clipboard, "CLIPBOARD"},
    {&Atoms::primary, "PRIMARY"},
    {&Atoms::clipboardManager, "CLIPBOARD_MANAGER"},
    {&Atoms::targets, "TARGETS"},
    {&Atoms::timestamp, "TIMESTAMP"},
    {&Atoms::multiple, "MULTIPLE"},
    {&Atoms::atomPair, "ATOM_PAIR"},
    {&Atoms::saveTargets, "SAVE_TARGETS"},
    {&Atoms::incr, "INCR"},
    {&Atoms::null, "NULL"},
    {&Atoms::atom, "ATOM"},
    {&Atoms::integer, "INTEGER"},
    {&Atoms::utf8String, "UTF8_STRING"},
    {&Atoms::plainTextUTF8, "text/plain;charset=utf-8"},
    {&Atoms::plainTextUTF8Capital, "text/plain;charset=UTF-8"},
    {&Atoms::plainText, "text/plain"},
    {&Atoms::string, "STRING"},
    {&Atoms::text, "TEXT"},
    {&Atoms::compoundText, "COMPOUND_TEXT"},
    {&Atoms::cString, "C_STRING"},
    {&Atoms::png, "image/png"},
    {&Atoms::tiff, "image/tiff"},
    {&Atoms::bmp, "image/bmp"},
    {&Atoms::bmpVendor, "image/x-bmp"},
    {&Atoms::bmpMicrosoft, "image/x-MS-bmp"},
    {&Atoms::pixmap, "image/x-portable-pixmap"},
    {&Atoms::graymap, "image/x-portable-graymap"},
    {&Atoms::bitmap, "image/x-portable-bitmap"},
    {&Atoms::webp, "image/webp"},
    {&Atoms::xpm, "image/x-xpixmap"},
    {&Atoms::icon, "image/vnd.microsoft.icon"},
    {&Atoms::iconShort, "image/x-icon"},
    {&Atoms::gif, "image/gif"},
    {&Atoms::jpeg, "image/jpeg"},
    {&Atoms::jpegShort, "image/jpg"},
    {&Atoms::html, "text/html"},
    {&Atoms::uriList, "text/uri-list"},
    {&Atoms::rtfText, "text/rtf"},
    {&Atoms::rtfApplication, "application/rtf"},
    {&Atoms::copiedFiles, "x-special/gnome-copied-files"},
    {&Atoms::passwordManagerHint, "x-kde-passwordManagerHint"},
    {&Atoms::ownTimestamp, "TESSEL_TIMESTAMP"},
};

constexpr std::string_view slotNames[] = {
    "TESSEL_VALUE_0",  "TESSEL_VALUE_1",  "TESSEL_VALUE_2",  "TESSEL_VALUE_3",  "TESSEL_VALUE_4",
    "TESSEL_VALUE_5",  "TESSEL_VALUE_6",  "TESSEL_VALUE_7",  "TESSEL_VALUE_8",  "TESSEL_VALUE_9",
    "TESSEL_VALUE_10", "TESSEL_VALUE_11", "TESSEL_VALUE_12", "TESSEL_VALUE_13", "TESSEL_VALUE_14",
    "TESSEL_VALUE_15", "TESSEL_VALUE_16", "TESSEL_VALUE_17", "TESSEL_VALUE_18", "TESSEL_VALUE_19",
    "TESSEL_VALUE_20", "TESSEL_VALUE_21", "TESSEL_VALUE_22", "TESSEL_VALUE_23", "TESSEL_VALUE_24",
    "TESSEL_VALUE_25", "TESSEL_VALUE_26", "TESSEL_VALUE_27", "TESSEL_VALUE_28", "TESSEL_VALUE_29",
    "TESSEL_VALUE_30", "TESSEL_VALUE_31",
};
static_assert(std::size(slotNames) == Atoms::transferSlotCount);

} // namespace

std::span<const SelectionAtoms::Name> SelectionAtoms::names()
{
    return knownNames;
}

std::string_view SelectionAtoms::transferSlotName(std::size_t index)
{
    return slotNames[index];
}

std::array<AtomID, SelectionAtoms::pictureTargetCount> SelectionAtoms::pictureTargets() const
{
    return {png,  tiff, bmp,  bmpVendor, bmpMicrosoft, pixmap, graymap,  bitmap,
            webp, xpm,  icon, iconShort, gif,          jpeg,   jpegShort};
}

std::optional<std::string_view> SelectionAtoms::pictureType(AtomID target) const
{
    for (const AtomID known : pictureTargets()) {
        if (known != target)
            continue;
        const auto entry = std::ranges::find_if(
            knownNames, [&](const Name& candidate) { return this->*candidate.member == target; });
        return entry->name;
    }
    return std::nullopt;
}

AtomID SelectionAtoms::pictureTarget(std::string_view mimeType) const
{
    for (const AtomID known : pictureTargets()) {
        if (pictureType(known) == mimeType)
            return known;
    }
    return noAtom;
}

std::array<AtomID, SelectionAtoms::companionTargetCount> SelectionAtoms::companionTargets() const
{
    return {html, uriList, rtfText, rtfApplication, copiedFiles};
}

} // namespace tessel
