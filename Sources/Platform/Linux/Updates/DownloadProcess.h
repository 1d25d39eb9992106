#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

#include <functional>

#include "Token.h"
#include "Updates/DownloadResult.h"

namespace tessel {

/// Where `tessel-clipboard-download` is: beside this program, as it is built, or where it is installed.
QString downloadProgramPath();

/// Loads a file over HTTPS by a process of that program, which gets the address and the largest size, in
/// bytes. `done` runs once, on a later turn of the main loop, and may drop the token. When that is dropped
/// before, the process ends and `done` does not run.
Token downloadByProcess(const QString& program, const QUrl& address, qint64 largestSize,
                        std::function<void(DownloadResult)> done);

} // namespace tessel
