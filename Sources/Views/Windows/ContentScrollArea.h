#pragma once

#include <QtWidgets/QScrollArea>

namespace tessel {

/// Scrolls its content without a frame, a ground or scroll bars of its own. The control that has the keyboard
/// focus is always in view.
class ContentScrollArea : public QScrollArea {
    Q_OBJECT

public:
    explicit ContentScrollArea(QWidget* parent = nullptr);

    /// Takes ownership of `content`.
    void setContent(QWidget* content);
};

} // namespace tessel
