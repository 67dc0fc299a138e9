#include "ui/SettingsWindow.h"

#include "localization/AppLocalization.h"
#include "platform/ColorScheme.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace mireval {

SettingsWindow::SettingsWindow(const std::filesystem::path& icon, AppLocalization& localization,
                               ColorScheme& colorScheme)
    : ViewWindow(QStringLiteral("MacSettingsView.qml"), {{QStringLiteral("localization"), &localization},
                                                         {QStringLiteral("colorScheme"), &colorScheme}}) {
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
