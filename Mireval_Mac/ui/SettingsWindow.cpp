#include "ui/SettingsWindow.h"

#include "localization/AppLocalization.h"
#include "platform/ColorScheme.h"
#include "ui/CorvaneAppearance.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace mireval {

using namespace Qt::StringLiterals;

SettingsWindow::SettingsWindow(const std::filesystem::path& icon, AppLocalization& localization,
                               ColorScheme& colorScheme)
    : ViewWindow(u"MacSettingsView.qml"_s,
                 {{u"localization"_s, &localization}, {u"colorScheme"_s, &colorScheme}}) {
  setFramed(icon);
  setGround(colorScheme, CorvaneAppearance(false).canvas, CorvaneAppearance(true).canvas);
  const auto nameIt = [this, &localization] {
    setTitle(localization.text(L10nKey::settingsTitle) + u" \u2013 Mireval"_s);
  };
  nameIt();
  connect(&localization, &AppLocalization::languageChanged, this, nameIt);
}

void SettingsWindow::open() {
  show();
  requestActivate();
}

bool SettingsWindow::event(QEvent* event) {
  const bool handled = ViewWindow::event(event);
  if (event->type() == QEvent::Close) {
    Q_EMIT closed();
  }
  return handled;
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close)) {
    close();
    return;
  }
  ViewWindow::keyPressEvent(event);
}

}  // namespace mireval
