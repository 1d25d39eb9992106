#include "Windows/Controls/ReturnKey.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>

namespace tessel {

bool pressWithReturn(QAbstractButton& button, const QKeyEvent& event)
{
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)
        return false;
    if (!event.isAutoRepeat())
        button.click();
    return true;
}

} // namespace tessel
