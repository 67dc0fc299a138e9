#pragma once

#include "localization/AppLanguage.h"

#include <QStringView>

namespace mireval {

/// What a screen reader speaks where the panel shows no word: for a transport symbol such as "play.fill", for
/// the group "modes", and for a mode that is "playing" or "paused". Empty for anything else. The text lives
/// as long as the program.
QStringView spokenLabel(QStringView name, AppLanguage language);

}  // namespace mireval
