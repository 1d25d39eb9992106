#include "Windows/Entrance.h"

#include <QtWidgets/QWidget>

#include <cmath>

#include "Windows/EntranceEffect.h"

namespace tessel {

Entrance::Entrance(const SpringCurve& curve)
    : curve_(curve)
{
    constexpr double millisecondsPerSecond = 1000;
    const double duration = curve.settlingTime();
    setStartValue(0.0);
    setEndValue(duration);
    setDuration(static_cast<int>(std::ceil(duration * millisecondsPerSecond)));
    connect(this, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& seconds) { moveTo(seconds.toDouble()); });
    connect(this, &QAbstractAnimation::finished, this, &Entrance::skip);
}

void Entrance::add(QWidget* part, double offset)
{
    effects_.push_back(new EntranceEffect(offset));
    part->setGraphicsEffect(effects_.back());
}

void Entrance::skip()
{
    stop();
    // A view without an effect is drawn directly.
    for (EntranceEffect* effect : effects_)
        delete effect;
    effects_.clear();
}

void Entrance::moveTo(double seconds)
{
    for (EntranceEffect* effect : effects_)
        effect->setProgress(curve_.at(seconds));
}

} // namespace tessel
