#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include <QtCore/QString>
#include <QtCore/Qt>

class QPainter;
class QPointF;
class QTextLayout;

namespace tessel {

struct PanelFonts;

/// The title of a row, laid out: at most two lines, the second elided where the text goes on.
class RowTitle {
public:
    /// `width` is in points. Both lines begin on the side where lines of the interface begin, whatever the
    /// text's own direction. The fonts are only used here.
    RowTitle(const QString& title, const PanelFonts& fonts, double width,
             Qt::LayoutDirection interfaceDirection = Qt::LeftToRight);
    ~RowTitle();
    RowTitle(RowTitle&&) noexcept;
    RowTitle& operator=(RowTitle&&) noexcept;

    /// In points, as it was given.
    double width() const { return width_; }
    int lineCount() const;
    /// What a line shows, counted from 0.
    QString line(int number) const;
    /// In the painter's pen. `baseline` is the left end of the first line's baseline.
    void draw(QPainter& painter, const QPointF& baseline, double lineHeight) const;

private:
    /// The line in the layout that shows it.
    std::pair<const QTextLayout&, int> shownLine(int number) const;

    double width_;
    double scale_; ///< From the layouts' measures to points.
    std::unique_ptr<QTextLayout> text_;
    /// Takes the place of the second line where that is elided.
    std::unique_ptr<QTextLayout> elidedLine_;
};

/// The title with every character that a font cannot show in a line (tabs, carriage returns, other controls
/// and separators) made a space or, where it has nothing to show, left out. So are the controls that order a
/// text against its own direction: they are often not closed, and make a text look like another one. It has
/// the same words, and is for drawing only.
QString drawableTitle(const QString& title);

/// How many lines the title will have, without laying it out. None: it takes a layout to tell.
std::optional<int> quickLineCount(std::string_view title, const PanelFonts& fonts, double width);

} // namespace tessel
