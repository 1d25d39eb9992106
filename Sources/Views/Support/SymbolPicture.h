#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QImage>

class QPainter;

namespace tessel {

/// A symbol that is drawn often: it is rendered only when it has another colour, size or scale.
class SymbolPicture {
public:
    /// `name` is that of a file among the resources.
    explicit SymbolPicture(const QString& name)
        : name_(name)
    {}

    /// `place` is in points.
    void draw(QPainter& painter, const QRect& place, const QColor& color);

private:
    QString name_;
    QColor color_;
    QImage image_;
};

} // namespace tessel
