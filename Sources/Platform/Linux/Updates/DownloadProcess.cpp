#include "Updates/DownloadProcess.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QObject>
#include <QtCore/QProcess>

#include <memory>
#include <utility>

namespace tessel {

namespace {

class DownloadProcess final : public QObject {
public:
    DownloadProcess(const QString& program, const QUrl& address, qint64 largestSize,
                    std::function<void(DownloadResult)> done)
        : largestSize_(largestSize)
        , done_(std::move(done))
        , process_(new QProcess)
    {
        // What it might say is for who runs it by hand.
        process_->setStandardErrorFile(QProcess::nullDevice());
        process_->setStandardInputFile(QProcess::nullDevice());
        connect(process_, &QIODevice::readyRead, this, [this] { takeWhatIsThere(); });
        connect(process_, &QProcess::finished, this,
                [this](int exitStatus, QProcess::ExitStatus end) { finish(resultOf(exitStatus, end)); });
        // In another turn: it may fail to start before this constructor is left.
        connect(
            process_, &QProcess::errorOccurred, this,
            [this](QProcess::ProcessError error) {
                if (error == QProcess::FailedToStart)
                    finish(UpdateFeedFailure::incomplete);
            },
            Qt::QueuedConnection);
        process_->start(program, {address.toString(QUrl::FullyEncoded), QString::number(largestSize)});
    }

    ~DownloadProcess() override
    {
        process_->disconnect(this);
        // Deleted only once it has ended: the toolkit's destructor would wait for that.
        const auto retire = [process = process_] {
            if (process->state() == QProcess::NotRunning)
                process->deleteLater();
        };
        connect(process_, &QProcess::stateChanged, process_, retire);
        retire();
        process_->kill();
    }

    DownloadProcess(const DownloadProcess&) = delete;
    DownloadProcess& operator=(const DownloadProcess&) = delete;

private:
    void takeWhatIsThere()
    {
        content_ += process_->readAll();
        if (content_.size() > largestSize_)
            finish(UpdateFeedFailure::tooLarge);
    }

    DownloadResult resultOf(int exitStatus, QProcess::ExitStatus end)
    {
        content_ += process_->readAll();
        if (end != QProcess::NormalExit)
            return UpdateFeedFailure::incomplete;
        if (exitStatus != 0)
            return failureOf(exitStatus).value_or(UpdateFeedFailure::incomplete);
        return content_.size() > largestSize_ ? DownloadResult(UpdateFeedFailure::tooLarge) : content_;
    }

    void finish(const DownloadResult& result)
    {
        if (const auto done = std::exchange(done_, nullptr))
            done(result);
    }

    qint64 largestSize_;
    std::function<void(DownloadResult)> done_;
    QProcess* process_; ///< Deletes itself once it has ended.
    QByteArray content_;
};

} // namespace

QString downloadProgramPath()
{
    const QString name = QStringLiteral("tessel-clipboard-download");
    const QString here = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    const QString built = here + name;
    return QFileInfo::exists(built) ? built : here + QStringLiteral(TESSEL_PROGRAMS_FROM_HERE "/") + name;
}

Token downloadByProcess(const QString& program, const QUrl& address, qint64 largestSize,
                        std::function<void(DownloadResult)> done)
{
    auto process = std::make_shared<DownloadProcess>(program, address, largestSize, std::move(done));
    return Token([process]() mutable { process.reset(); });
}

} // namespace tessel
