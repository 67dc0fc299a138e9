#include "fakes/FakeColorScheme.h"

namespace mireval {

void FakeColorScheme::setDark(bool dark) {
  if (m_dark != dark) {
    m_dark = dark;
    Q_EMIT darkChanged();
  }
}

}  // namespace mireval
