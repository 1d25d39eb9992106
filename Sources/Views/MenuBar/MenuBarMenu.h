#pragma once

#include <string>
#include <vector>

#include <QtWidgets/QMenu>

#include "StatusItem.h"

class QLabel;

namespace tessel {

class WindowTheme;

/// The menu-bar extra's menu as a window of our own, for a system that leaves it to us. It is shown without
/// waiting (`popup`), keeps the look it was opened with, and deletes itself once it is closed. What is chosen
/// runs on the next turn of the loop: the menu has given back the keyboard by then.
class MenuBarMenu : public QMenu {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    MenuBarMenu(const std::vector<StatusMenuRow>& rows, const WindowTheme& theme);

    /// Changes the second text of the header.
    void setCaption(const std::string& caption);

private:
    void addRow(const StatusMenuRow& row);
    void addHeader(const StatusMenuRow& row);

    const WindowTheme& theme_;
    QAction* header_ = nullptr;
    QLabel* title_ = nullptr;
    QLabel* caption_ = nullptr;
};

} // namespace tessel
