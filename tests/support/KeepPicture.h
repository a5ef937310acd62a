// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QPixmap;
class QWidget;

namespace tol::test {

/// Writes a picture to the folder that TOL_SCREENSHOTS names, if any.
void keepPicture(const QPixmap& picture, const QString& name);

/// Looks at a window as it is now: a picture of it is kept, and every control in sight has to have a name for
/// those who can't see it, and every heading of a list the room that it needs.
void keepPicture(QWidget& window, const QString& name);

} // namespace tol::test
