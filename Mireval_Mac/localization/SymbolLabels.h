#pragma once

#include "localization/AppLanguage.h"

#include <QStringView>

namespace mireval {

/// What a screen reader speaks for a transport symbol such as "play.fill"; empty for any other symbol. The
/// text lives as long as the program.
QStringView symbolLabel(QStringView symbolName, AppLanguage language);

}  // namespace mireval
