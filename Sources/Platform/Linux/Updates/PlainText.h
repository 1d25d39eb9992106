#pragma once

#include <QtCore/QString>

namespace tessel {

/// What a piece of HTML says, as plain text: paragraphs, lines and list items on lines of their own. What is
/// not HTML after all stays as it is. Takes time in proportion to its length.
QString textOfHTML(const QString& html);

/// A text without control characters, with single blank lines at most and none around it, that is no longer
/// than `longest` characters; what is cut off is told by an ellipsis.
QString tidiedText(const QString& text, qsizetype longest);

} // namespace tessel
