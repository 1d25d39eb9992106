#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>

#include "HotKey/HotKeyPreset.h"
#include "Panel/RowText.h"
#include "Support/CoreText.h"
#include "Support/PanelDesktop.h"
#include "Support/Translations.h"

namespace tessel::test {

namespace {

using testing::Contains;
using testing::UnorderedElementsAre;

const QStringList german = {QStringLiteral("de-AT"), QStringLiteral("en-GB")};

ClipboardItem textItem()
{
    return {UUID::random(), std::make_shared<const std::string>("Text"), 0};
}

ClipboardItem imageItem()
{
    return {UUID::random(), FakeImage::withPNG("picture"), 0};
}

/// Every text that the rules have for the user.
std::vector<std::string> textsOfTheRules()
{
    std::vector<std::string> texts = {std::string(kindLabel(textItem())), std::string(kindLabel(imageItem())),
                                      rowTitle(imageItem())};
    for (const HotKeyPreset preset : allHotKeyPresets)
        texts.emplace_back(title(preset));
    return texts;
}

/// What the one row of a panel with that entry shows above its metadata.
template <class Content>
QImage drawnTitle(const Content& content)
{
    PanelDesktop desktop;
    desktop.copy(content);
    desktop.openPanel();
    constexpr int previewEnd = 10 + 32;
    constexpr int titleHeight = 9 + 16;
    const auto id = desktop.state->orderedHistory().front().id;
    const QRect row = desktop.list().rowRectangle(id).value_or(QRect());
    return desktop.list().grab(QRect(row.x() + previewEnd, row.y(), 200, titleHeight)).toImage();
}

} // namespace

TEST(Translations, KnowEveryTextOfTheRules)
{
    QTranslator translator;
    ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/tessel-clipboard_de.qm")));
    for (const std::string& text : textsOfTheRules())
        EXPECT_FALSE(translator.translate("Core", text.c_str()).isEmpty()) << text;
}

TEST(Translations, LeaveTheRulesTextsInEnglishWithoutALanguage)
{
    for (const std::string& text : textsOfTheRules())
        EXPECT_EQ(coreText(text).toStdString(), text);
}

TEST(Translations, AreInTheFirstLanguageThatThereIs)
{
    const Translations translations({QStringLiteral("tlh"), QStringLiteral("de-AT"), QStringLiteral("en")});
    EXPECT_EQ(coreText("Image"), QStringLiteral("Bild"));
}

TEST(Translations, AreNotNeededWhereEnglishIsPreferred)
{
    for (const char* english : {"en-GB", "en", "C"}) {
        const Translations translations({QString::fromLatin1(english), QStringLiteral("de")});
        EXPECT_EQ(coreText("Image"), QStringLiteral("Image")) << english;
    }
}

TEST(Translations, AreMissingInMostLanguages)
{
    const Translations translations({QStringLiteral("tlh"), QStringLiteral("ar-EG")});
    EXPECT_EQ(coreText("Image"), QStringLiteral("Image"));
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
}

TEST(Translations, EndWithTheirObject)
{
    {
        const Translations translations(german);
        EXPECT_EQ(coreText("Image"), QStringLiteral("Bild"));
    }
    EXPECT_EQ(coreText("Image"), QStringLiteral("Image"));
}

TEST(Translations, IncludeTheToolkitsOwnTexts)
{
    const Translations translations(german);
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Close"), QStringLiteral("Schließen"));
}

TEST(Translations, CountAsTheLanguageDoes)
{
    const Translations translations(german);
    PanelDesktop desktop;
    desktop.openPanel();
    EXPECT_THAT(desktop.visibleLabels(),
                UnorderedElementsAre("Zwischenablage", "0 Einträge", "Die Zwischenablage ist leer",
                                     "Was kopiert wird, erscheint hier."));
    desktop.copy("one");
    runMainLoop();
    EXPECT_THAT(desktop.visibleLabels(), Contains("1 Eintrag"));
    desktop.copy("two");
    runMainLoop();
    EXPECT_THAT(desktop.visibleLabels(), Contains("2 Einträge"));
}

TEST(Translations, AreForTheProgramsTextsAndNotForTheUsers)
{
    const QImage text = drawnTitle("Image");
    const QImage image = drawnTitle(FakeImage::withPNG("picture"));
    const Translations translations(german);
    EXPECT_EQ(drawnTitle("Image"), text);
    EXPECT_NE(drawnTitle(FakeImage::withPNG("picture")), image);
}

} // namespace tessel::test
