#pragma once

class QAbstractButton;
class QKeyEvent;

namespace tessel {

/// Return and Enter press a button, once, however long they are held. False: it is another key.
bool pressWithReturn(QAbstractButton& button, const QKeyEvent& event);

} // namespace tessel
