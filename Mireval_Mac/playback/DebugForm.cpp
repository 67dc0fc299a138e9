#include "playback/DebugForm.h"

namespace mireval {

QString debugForm(QStringView text) {
  constexpr char16_t firstPrintable = 0x20;
  constexpr char16_t deleteCharacter = 0x7f;
  constexpr char16_t lastControl = 0x9f;
  QString quoted(QLatin1Char('"'));
  for (const QChar character : text) {
    const char16_t code = character.unicode();
    switch (code) {
      case u'\0':
        quoted += QLatin1String("\\0");
        break;
      case u'\t':
        quoted += QLatin1String("\\t");
        break;
      case u'\n':
        quoted += QLatin1String("\\n");
        break;
      case u'\r':
        quoted += QLatin1String("\\r");
        break;
      case u'"':
        quoted += QLatin1String("\\\"");
        break;
      case u'\\':
        quoted += QLatin1String("\\\\");
        break;
      default:
        if (code < firstPrintable || (code >= deleteCharacter && code <= lastControl)) {
          quoted += QStringLiteral("\\u{%1}").arg(QString::number(code, 16).toUpper());
        } else {
          quoted += character;
        }
    }
  }
  return quoted + QLatin1Char('"');
}

}  // namespace mireval
