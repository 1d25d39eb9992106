#pragma once

class QLabel;
class QString;
class QWidget;

namespace tessel {

struct TextStyle;

/// A plain text of the panel, white at an opacity, owned by `parent`.
QLabel* makePanelLabel(const QString& text, const TextStyle& style, double opacity, QWidget* parent);

} // namespace tessel
