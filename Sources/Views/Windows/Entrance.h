#pragma once

#include <vector>

#include <QtCore/QVariantAnimation>

#include "Support/SpringCurve.h"

class QWidget;

namespace tessel {

class EntranceEffect;

/// Lets parts of a view fade in and slide into their places, as a spring moves. Until it is started, or
/// skipped, they cannot be seen. Its value is the seconds that have passed.
class Entrance final : public QVariantAnimation {
    Q_OBJECT

public:
    explicit Entrance(const SpringCurve& curve);

    /// `offset` is how far below its place the part begins, in points.
    void add(QWidget* part, double offset);
    /// Everything is in its place at once.
    void skip();

private:
    void moveTo(double seconds);

    SpringCurve curve_;
    std::vector<EntranceEffect*> effects_;
};

} // namespace tessel
