#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace tessel {

/// Replaces a regular file, or nothing, by one with that content, whole or not at all. Its directory is made
/// where it is missing. False: nothing has changed.
bool writeWholeFile(const QString& path, const QByteArray& content);

} // namespace tessel
