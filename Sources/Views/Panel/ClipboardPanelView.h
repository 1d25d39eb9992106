#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "History/HistoryRules.h"
#include "Panel/CardEdgeView.h"
#include "Panel/ClipboardListView.h"
#include "Panel/KeyboardEventBridge.h"
#include "Panel/VisualEffectView.h"
#include "Support/UUID.h"
#include "Token.h"

namespace tessel {

class AppState;
class ColorView;
class EmptyStateView;
class KeyCaptureView;
class PanelArtwork;
class PanelHeader;
class RowContextMenu;

/// The content of the history panel: a card with a header and the history in two sections, or a message where
/// there is no history. It draws an `AppState` and calls it; its own state is the selection and the hover,
/// which live as long as it does.
class ClipboardPanelView : public QWidget {
    Q_OBJECT

public:
    /// Holds `appState` weakly, and does nothing any more once that is gone.
    ClipboardPanelView(AppState& appState, std::shared_ptr<PanelArtwork> artwork, QWidget* parent);
    ~ClipboardPanelView() override;

    std::optional<UUID> selectedItemID() const { return selectedItemID_; }
    std::optional<UUID> hoveredItemID() const { return hoveredItemID_; }
    void setWindowBlending(WindowBlending blending);
    /// `effect`, which is behind this view, draws the card's material.
    void leaveMaterialTo(std::unique_ptr<VisualEffect> effect);
    /// What is behind the window. Null: it is not known.
    void setBackdrop(std::shared_ptr<const Backdrop> picture);
    /// What is behind the card's corners, for a window through which nothing shines.
    void setDesktopCorners(const CardCorners& corners);

    /// @name What the user does
    /// @{
    void moveSelection(int step);
    void selectItem(UUID id);
    void pasteItem(UUID id);
    /// The pointer enters or leaves a row; leaving ends any hover.
    void pointerEntered(UUID id);
    void pointerLeft(UUID id);
    void showContextMenu(UUID id, QPoint place);
    /// The same beside the selected row, for the keys: the first item is chosen. Does nothing without one.
    void showContextMenuOfSelectedRow();
    void closePanel();
    void clearAll();
    /// @}

    ClipboardListView& list() const { return *list_; }
    KeyCaptureView& keyCapture() const { return *keyCapture_; }
    /// The context menu that is open. Null: none is.
    RowContextMenu* contextMenu() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    enum class Reveal { no, yes };

    KeyboardEventBridge keyboardEventBridge();
    ClipboardListView::Actions listActions();
    void updateLater();
    /// Shows what the state is now.
    void updateNow();
    /// Makes up for an update that is due, so that keys which were typed quickly act on what is there now.
    void bringUpToDate();
    void updateContentList(const History& ordered);
    void ensureSelection(const History& ordered);
    void setSelectedItemID(std::optional<UUID> id, Reveal reveal);
    void setHoveredItemID(std::optional<UUID> id);
    /// Runs `operation` on the state and the entry, if both are still there.
    template <class Operation>
    void withItem(std::optional<UUID> id, Operation operation);
    template <class Operation>
    void withSelectedItem(Operation operation);

    std::weak_ptr<AppState> appState_;
    std::shared_ptr<PanelArtwork> artwork_;
    std::optional<UUID> selectedItemID_;
    std::optional<UUID> hoveredItemID_;
    std::vector<UUID> shownItemIDs_;
    WindowBlending blending_ = WindowBlending::opaque;
    bool updateIsPending_ = false;
    /// A key has moved the selected row within the list, and the next update shows where to.
    bool revealsSelectionNext_ = false;

    // In the order in which they are read out.
    VisualEffectView* material_;
    ColorView* tint_;
    PanelHeader* header_;
    KeyCaptureView* keyCapture_;
    ClipboardListView* list_;
    EmptyStateView* emptyState_ = nullptr; ///< Made when it is first needed.
    CardEdgeView* edge_;
    QPointer<RowContextMenu> contextMenu_;
    Token observation_;
};

} // namespace tessel
