#pragma once

#include <functional>

#include <QtWidgets/QAbstractButton>

#include "Support/SymbolPicture.h"
#include "Support/TextStyle.h"
#include "Windows/Controls/FocusOutline.h"

namespace tessel {

class WindowTheme;

/// A link: a symbol and a text. To assistive programs it is a link, too.
class LinkButton final : public QAbstractButton, public HasFocusOutline {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    LinkButton(const QString& text, const WindowTheme& theme, std::function<void()> open);

    QSize sizeHint() const override { return size_; }
    FocusOutline focusOutline() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const WindowTheme& theme_;
    TextStyle style_;
    SymbolPicture symbol_{QStringLiteral("link")};
    QSize size_;
};

} // namespace tessel
