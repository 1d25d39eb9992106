#include "Updates/UpdateTexts.h"

#include <QtCore/QCoreApplication>

namespace tessel {

namespace {

/// The texts for each alternative of a status.
class Texts {
    Q_DECLARE_TR_FUNCTIONS(UpdateTexts)

public:
    UpdateTexts operator()(const UpdateIsSought&) const { return {tr("Checking for updates…"), {}}; }
    UpdateTexts operator()(const ProgramIsUpToDate& status) const
    {
        return {tr("You're up to date!"), tr("Tessel Clipboard %1 is the newest version available.")
                                              .arg(QString::fromStdString(status.currentVersion))};
    }
    UpdateTexts operator()(const UpdateIsFound& status) const
    {
        const QString versions = tr("Tessel Clipboard %1 is now available. You have %2.")
                                     .arg(QString::fromStdString(status.item.displayVersion),
                                          QString::fromStdString(status.currentVersion));
        const bool hasPage = !status.item.downloadPage.empty();
        return {tr("A new version of Tessel Clipboard is available!"),
                hasPage ? versions : versions + QLatin1Char(' ') + tr("Get it where you got this one.")};
    }
    UpdateTexts operator()(const PackagesBringUpdates&) const
    {
        return {tr("Updates come with your system"),
                tr("Tessel Clipboard is updated together with the other packages of your system. Look for "
                   "updates where you do so for those.")};
    }
    UpdateTexts operator()(UpdateFeedFailure failure) const
    {
        switch (failure) {
        case UpdateFeedFailure::offline:
            return {tr("The update server cannot be reached"),
                    tr("Check your connection to the Internet, and try again.")};
        case UpdateFeedFailure::insecureConnection:
            return {tr("The connection to the update server is not secure"),
                    tr("Perhaps this network wants you to log in first, or your computer's clock is wrong. "
                       "Otherwise somebody may be reading along. Try again later, or from another network.")};
        case UpdateFeedFailure::noFeed:
            return {tr("The list of versions is not there"),
                    tr("The update server does not have it where it should be. Try again later.")};
        case UpdateFeedFailure::serverTrouble:
            return {tr("The update server has a problem"), tr("Try again later.")};
        case UpdateFeedFailure::timedOut:
            return {tr("The update server takes too long to answer"), tr("Try again later.")};
        case UpdateFeedFailure::tooLarge:
            return {tr("The list of versions is too large"), tr("It has not been read. Try again later.")};
        case UpdateFeedFailure::notTrusted:
            return {
                tr("The list of versions cannot be trusted"),
                tr("It is not signed by the publisher of Tessel Clipboard, and has not been read. Try again "
                   "later.")};
        case UpdateFeedFailure::damaged:
            return {tr("The list of versions is damaged"), tr("Try again later.")};
        case UpdateFeedFailure::misconfigured:
            return {tr("Updates are not set up correctly"),
                    tr("The file updates.json, which came with this installation, cannot be understood. Ask "
                       "whoever "
                       "installed Tessel Clipboard.")};
        case UpdateFeedFailure::incomplete:
            break;
        }
        return {
            tr("A part of Tessel Clipboard does not work"),
            tr("The program that loads the list of versions is missing or damaged. Install Tessel Clipboard "
               "again.")};
    }
};

} // namespace

UpdateTexts updateTexts(const UpdateStatus& status)
{
    return std::visit(Texts(), status);
}

} // namespace tessel
