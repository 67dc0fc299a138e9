#include "ui/SettingsWindow.h"

#include "localization/AppLocalization.h"
#include "platform/ColorScheme.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace mireval {

using namespace Qt::StringLiterals;

SettingsWindow::SettingsWindow(const std::filesystem::path& icon, AppLocalization& localization,
                               ColorScheme& colorScheme)
    : ViewWindow(u"MacSettingsView.qml"_s,
                 {{u"localization"_s, &localization}, {u"colorScheme"_s, &colorScheme}}) {
  setFramed(icon, colorScheme);
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
