#include <QtCore/QString>
