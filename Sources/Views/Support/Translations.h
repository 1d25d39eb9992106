#pragma once

#include <QtCore/QStringList>
#include <QtCore/QTranslator>

namespace tessel {

/// The translation of the program's texts and of the toolkit's own, in use as long as this object lives. The
/// application must exist, and windows that are made later show it.
class Translations {
public:
    /// Takes the first language that there is a translation for; English needs none. `languages` are the
    /// user's in the order of preference, as BCP 47 names them. The interface runs in the direction of the
    /// language, and goes on to do so.
    explicit Translations(const QStringList& languages);

private:
    bool use(const QLocale& language);

    QTranslator texts_;
    QTranslator textsOfToolkit_;
};

} // namespace tessel
