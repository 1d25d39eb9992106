#pragma once

#include "Windows/SectionCard.h"

namespace tessel {

class ContentScrollArea;

/// What is new in a version, as plain text on a card, which scrolls where it is long.
class ReleaseNotesView final : public SectionCard {
    Q_OBJECT

public:
    /// `theme` must outlive this object. `width` is that of the card, in points.
    ReleaseNotesView(const QString& notes, const WindowTheme& theme, int width);

    /// Scrolls as the key says. False: it says nothing of the kind.
    bool scroll(Qt::Key key);

private:
    ContentScrollArea* area_;
};

} // namespace tessel
