#include "Support/Translations.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtGui/QGuiApplication>

namespace tessel {

Translations::Translations(const QStringList& languages)
{
    for (const QString& name : languages) {
        const QLocale language(name);
        // A language that the toolkit does not know has the C locale's rules, but another name.
        const bool isAsWritten = language.language() == QLocale::English || name == QLatin1String("C");
        if (isAsWritten || use(language))
            return;
    }
}

bool Translations::use(const QLocale& language)
{
    if (!texts_.load(language, QStringLiteral("tessel-clipboard"), QStringLiteral("_"),
                     QStringLiteral(":/i18n")))
        return false;
    QGuiApplication::setLayoutDirection(language.textDirection());
    QCoreApplication::installTranslator(&texts_);
    // Not everybody has these installed; the toolkit's texts then stay English.
    if (textsOfToolkit_.load(language, QStringLiteral("qtbase"), QStringLiteral("_"),
                             QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&textsOfToolkit_);
    return true;
}

} // namespace tessel
