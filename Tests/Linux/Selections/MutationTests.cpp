#include <algorithm>

#include <gtest/gtest.h>

#include "ClipboardFixture.h"
#include "PeakMemory.h"
#include "SeededRuns.h"
#include "TestPictures.h"
#include "X11/Selections/ImagePreparation.h"
#include "X11/Selections/PictureConverter.h"
#include "X11/Selections/PictureDecoder.h"
#include "X11/Selections/TextDecoder.h"
#include "X11/Selections/UTF8.h"

namespace tessel {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

/// Well-formed pictures to start from: small ones, in many forms.
const std::vector<std::string>& wellFormedPictures()
{
    static const std::vector<std::string> pictures = [] {
        std::vector<std::string> made;
        for (const auto& [format, bytes] : picturesOfEachFormat(19, 13))
            made.push_back(bytes);
        const QImage transparent = testImage(17, 11);
        const QImage deep = testImage(9, 7, QImage::Format_RGBA64);
        for (const QImage& image : {transparent, deep}) {
            for (const TIFFAlpha alpha : {TIFFAlpha::associated, TIFFAlpha::unassociated})
                made.push_back(baselineTIFF(image, alpha, TIFFOrder::bigEndian));
            made.push_back(encodedImage(image, "png"));
            made.push_back(encodedImage(image, "tiff"));
            made.push_back(interlacedPNG(image));
        }
        made.push_back(encodedImage(transparent, "webp", 100));
        made.push_back(encodedImage(transparent, "webp", 50));
        made.push_back(bmpWithAlpha(transparent));
        for (const auto format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_Grayscale16}) {
            const QImage image = testImage(21, 9).convertToFormat(format);
            for (const char* name : {"png", "tiff", "bmp"})
                made.push_back(encodedImage(image, name));
        }
        return made;
    }();
    return pictures;
}

/// Gives the chunks of a PNG their checksums, so that the damage is not found before it is looked at.
std::string withRightChecksums(const std::string& png)
{
    constexpr std::size_t markBytes = 8;
    constexpr std::size_t chunkFrameBytes = 12;
    std::string mended = png.substr(0, markBytes);
    std::size_t at = markBytes;
    while (at + chunkFrameBytes <= png.size()) {
        std::size_t length = 0;
        for (std::size_t index = 0; index < 4; ++index)
            length = (length << 8) | static_cast<std::uint8_t>(png[at + index]);
        if (length > png.size() - at - chunkFrameBytes)
            break;
        mended += pngChunk(png.substr(at + 4, 4), png.substr(at + 8, length));
        at += length + chunkFrameBytes;
    }
    return mended + png.substr(std::min(at, png.size()));
}

void damageOnce(std::string& bytes, SeededRandom& random)
{
    const std::size_t at = random.below(bytes.size());
    const std::size_t length = 1 + random.below(std::min<std::size_t>(bytes.size() - at, 40));
    switch (random.below(8)) {
    case 0:
    case 1:
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << random.below(8)));
        return;
    case 2:
        bytes[at] = random.oneOf(std::string("\0\1\x7F\x80\xFE\xFF", 6));
        return;
    case 3: // A number becomes an absurd one, in either byte order.
        bytes.replace(
            at, 4,
            random.oneOf(std::vector<std::string>{std::string(4, '\xFF'), std::string("\x7F\xFF\xFF\xFF"),
                                                  std::string("\xFF\xFF\xFF\x7F"), std::string(4, '\0'),
                                                  std::string("\0\0\1\0", 4), std::string("\0\1\0\0", 4)}));
        return;
    case 4:
        bytes.erase(at, length);
        return;
    case 5:
        bytes.insert(at, bytes.substr(random.below(bytes.size()), length));
        return;
    case 6: { // Spliced with another picture.
        const std::string other = random.oneOf(wellFormedPictures());
        bytes.replace(at, length, other.substr(random.below(other.size()), length));
        return;
    }
    default:
        if (random.oneIn(4))
            bytes.resize(at);
        else
            bytes[at] = random.byte();
    }
}

std::string damagedPicture(SeededRandom& random)
{
    std::string bytes = random.oneOf(wellFormedPictures());
    for (std::size_t count = 1 + random.below(6); count > 0 && !bytes.empty(); --count)
        damageOnce(bytes, random);
    return random.oneIn(4) ? bytes : withRightChecksums(bytes);
}

TEST(Mutations, OfPicturesEndInAPictureOrInNoneAndSayNothing)
{
    PictureDecoder::prepareToolkit();
    testing::internal::CaptureStderr();
    const PeakMemory memory;
    std::size_t survivors = 0;
    forEachSeed(10000, [&](std::uint64_t seed) {
        SeededRandom random(seed);
        SelectionValue value;
        value.picture = {std::make_shared<const std::string>(damagedPicture(random)), "image/anything"};
        const auto image = prepareImage(value.picture, sha256OfPNG, Breath());
        if (!image)
            return;
        ++survivors;
        EXPECT_EQ(image->preparedFingerprint().value_or("").size(), 70U);
        EXPECT_GE(image->size().width, 1);
        EXPECT_LE(image->size().width * image->size().height, double{PictureDecoder::mostPixels});
        const bool isSmall = image->size().width * image->size().height < 100'000;
        if (isSmall && random.oneIn(8)) {
            EXPECT_TRUE(convertPicture(value, random.oneIn(2) ? "image/png" : "image/bmp", Breath()));
        }
    });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_GT(survivors, 0U) << "nothing was decoded at all";
    EXPECT_LE(memory.growth(), 2 * PictureDecoder::mostWholeBytes);
}

TEST(Mutations, OfTextsAreValidUTF8AndNeverNothing)
{
    forEachSeed(20000, [&](std::uint64_t seed) {
        SeededRandom random(seed);
        const std::string parts[] = {"word ",
                                     "Grüße",
                                     "世界",
                                     "🙂",
                                     "\xFF",
                                     "\xE4\xB8",
                                     "\x1B%G",
                                     "\x1B%@",
                                     "\x1B-A",
                                     "\x1B-B",
                                     std::string(3, '\0'),
                                     "\xF0\x9F",
                                     "\n",
                                     std::string("a\0b\0", 4),
                                     std::string("\0c\0d", 4)};
        std::string bytes;
        for (std::size_t count = random.below(30); count > 0; --count)
            bytes += random.oneIn(3) ? random.bytes(random.below(9)) : random.oneOf(parts);
        if (random.oneIn(20))
            bytes = std::string(random.below(8192), 'x') + bytes;
        for (const TextForm form : {TextForm::utf8, TextForm::latin1, TextForm::compoundText}) {
            const std::string text = textFromWire(bytes, form);
            ASSERT_TRUE(UTF8::isValid(text));
            const bool hasLetters = std::ranges::any_of(bytes, [](char byte) {
                return byte != 0 && byte != '\x1B' && byte != '\xFF' && byte != '\xFE';
            });
            // Compound text can consist of designations alone.
            if (form != TextForm::compoundText && hasLetters) {
                ASSERT_FALSE(text.empty());
            }
            TextDecoder decoder(form);
            for (std::size_t at = 0; at < bytes.size();) {
                const std::size_t length = 1 + random.below(random.oneIn(3) ? 5000 : 7);
                decoder.append(std::string_view(bytes).substr(at, length));
                at += length;
            }
            ASSERT_EQ(decoder.finish(), text) << "it depends on how it was cut into pieces";
        }
    });
}

class WireMutations : public ::testing::Test {
protected:
    /// Atoms that mean something to us, and some that mean nothing.
    static AtomID anyAtom(const SelectionAtoms& atoms, SeededRandom& random)
    {
        return random.oneIn(4) ? random.number() : atoms.*random.oneOf(SelectionAtoms::names()).member;
    }
    static FakeProperty anyList(const SelectionAtoms& atoms, SeededRandom& random)
    {
        std::vector<AtomID> list(random.below(random.oneIn(20) ? 6000 : 40));
        for (AtomID& atom : list)
            atom = anyAtom(atoms, random);
        FakeProperty property = {random.oneIn(3) ? anyAtom(atoms, random) : atoms.atom,
                                 random.oneIn(3) ? 8 << random.below(3) : 32, atomBytes(list)};
        if (random.oneIn(4) && property.format < 32)
            property.bytes.resize(property.bytes.size() - std::min<std::size_t>(property.bytes.size(), 3));
        return property;
    }
};

TEST_F(WireMutations, OfWhatAnOwnerSendsEndInOneReport)
{
    forEachSeed(3000, [&](std::uint64_t seed) {
        SeededRandom random(seed);
        ClipboardFixture clipboard;
        const SelectionAtoms& atoms = clipboard.atoms();
        FakeOwner owner;
        for (std::size_t count = random.below(12); count > 0; --count) {
            FakeTarget target;
            target.value = {anyAtom(atoms, random), 8 << random.below(3), random.bytes(4 * random.below(60))};
            if (random.oneIn(2))
                target.incrementBytes = 4 * (1 + random.below(20));
            // The announcement of increments is of any format and length, too.
            if (target.incrementBytes && random.oneIn(2))
                target.announcement = {atoms.incr, 8 << random.below(3), random.bytes(4 * random.below(4))};
            target.isMissing = random.oneIn(10);
            owner.targets[anyAtom(atoms, random)] = target;
        }
        FakeTarget list;
        list.value = anyList(atoms, random);
        if (random.oneIn(3))
            list.incrementBytes = 4 * (1 + random.below(20));
        owner.targets[atoms.targets] = list;
        clipboard.display.takeClipboard(std::move(owner));
        clipboard.display.deliverAll();
        clipboard.display.passTime(IncomingConversion::longestSilence);
        clipboard.display.deliverAll();
        clipboard.display.passTime(SelectionReceiver::retirement);
        ASSERT_EQ(clipboard.reports.size(), 1U);
        ASSERT_TRUE(clipboard.display.requestors.empty());
        ASSERT_FALSE(clipboard.coordinator.deadline());
        ASSERT_LE(clipboard.display.convertedTargets.size(), SelectionAtoms::transferSlotCount);
        const SelectionValue& value = clipboard.reports[0].received.value;
        ASSERT_TRUE(!value.text || UTF8::isValid(*value.text));
    });
}

TEST_F(WireMutations, OfWhatARequestorSendsEndInOneAnswer)
{
    forEachSeed(3000, [&](std::uint64_t seed) {
        SeededRandom random(seed);
        ClipboardFixture clipboard;
        const SelectionAtoms& atoms = clipboard.atoms();
        clipboard.writeText(1, std::string(random.below(3000), 'x'));
        clipboard.display.deliverAll();
        const WindowID window = clipboard.display.createForeignWindow();
        const AtomID property = 9000;
        if (!random.oneIn(10)) {
            FakeProperty pairs = anyList(atoms, random);
            // A pair may name the property of the pairs itself.
            if (random.oneIn(5) && pairs.bytes.size() >= 8)
                pairs.bytes.replace(4, 4, atomBytes({property}));
            clipboard.display.setProperty(window, property, std::move(pairs));
        }
        clipboard.display.notices.clear();
        const AtomID target = random.oneIn(4) ? anyAtom(atoms, random) : atoms.multiple;
        clipboard.display.request(window, atoms.clipboard, target, random.oneIn(10) ? noAtom : property);
        clipboard.display.deliverAll();
        ASSERT_EQ(clipboard.display.notices.size(), 1U);
        clipboard.display.passTime(OutgoingTransfer::longestSilence);
        ASSERT_TRUE(clipboard.display.watched.empty());
        ASSERT_EQ(*clipboard.paste(atoms.clipboard, atoms.targets),
                  *clipboard.paste(atoms.clipboard, atoms.targets));
    });
}

} // namespace
} // namespace tessel
