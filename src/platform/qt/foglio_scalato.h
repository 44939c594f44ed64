// The measures of a style sheet at another size.
#pragma once

#include <QString>

namespace platform {

/// The rules of `foglio` again, with their measures alone: paddings, margins, corners, sides of
/// parts and letters, in whole pixels at `fattore`. Borders stay as thin as they are.
QString misure_scalate(const QString& foglio, qreal fattore);

}  // namespace platform
