#include "Desktop/WholeFile.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace tessel {

bool writeWholeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    // A buffer would swallow that a full disk takes a part only.
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(content) == content.size() &&
           file.commit();
}

} // namespace tessel
