#include "Desktop/WholeFile.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace tessel {

bool writeWholeFile(const QString& path, const QByteArray& content)
{
    const QFileInfo there(path);
    // A link is followed, and what is at its end would be replaced, a device like anything else.
    if (there.exists() && !there.isFile())
        return false;
    QDir().mkpath(there.path());
    QSaveFile file(path);
    // A buffer would swallow that a full disk takes a part only.
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(content) == content.size() &&
           file.commit();
}

} // namespace tessel
