#pragma once

#include <functional>

#include <QtWidgets/QMenu>

#include "Panel/VisualEffectView.h"

namespace tessel {

/// The context menu of a row, in the panel's own look. It is shown without waiting (`popup`), and deletes
/// itself once it is closed.
class RowContextMenu : public QMenu {
    Q_OBJECT

public:
    struct Actions {
        std::function<void()> onCopy;
        std::function<void()> onPinToggle;
        std::function<void()> onDelete;
    };
    enum class Pin { pinned, unpinned };

    RowContextMenu(Pin pin, WindowBlending blending, const Actions& actions, QWidget* parent);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    QAction* deleteAction_;
};

} // namespace tessel
