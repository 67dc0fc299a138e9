#pragma once

#include <QString>

namespace mireval {

/// The text as a debug line shows it: in double quotes, with backslashes, quotes and control characters
/// escaped, so that whatever a title or an error contains, one failure stays one line.
QString debugForm(QStringView text);

}  // namespace mireval
