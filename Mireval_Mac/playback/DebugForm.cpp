#include "playback/DebugForm.h"

namespace mireval {

using namespace Qt::StringLiterals;

QString debugForm(QStringView text) {
  constexpr QStringView named(u"\0\t\n\r\"\\", 6);
  constexpr QStringView letters = u"0tnr\"\\";
  QString quoted = u"\""_s;
  for (const QChar character : text) {
    if (const auto index = named.indexOf(character); index >= 0) {
      quoted += QLatin1Char('\\') + letters[index];
    } else if (character.category() == QChar::Other_Control) {
      quoted += u"\\u{%1}"_s.arg(QString::number(character.unicode(), 16).toUpper());
    } else {
      quoted += character;
    }
  }
  return quoted + QLatin1Char('"');
}

}  // namespace mireval
