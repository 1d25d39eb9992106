#pragma once

#include <cstddef>
#include <functional>

#include <QtWidgets/QWidget>

class QLabel;

namespace tessel {

class HeaderAction;
struct PanelFonts;

/// The top of the panel: its title, the number of entries, and two buttons.
class PanelHeader : public QWidget {
    Q_OBJECT

public:
    struct Actions {
        std::function<void()> onClose;
        std::function<void()> onClearAll;
    };

    /// `fonts` must outlive this object.
    PanelHeader(const PanelFonts& fonts, Actions actions, QWidget* parent);

    void setItemCount(std::size_t count);
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int textHeight() const;

    const PanelFonts& fonts_;
    QLabel* title_;
    QLabel* itemCount_;
    HeaderAction* close_;
    HeaderAction* clearAll_;
};

} // namespace tessel
