#include "ui/PanelWindow.h"

#include "localization/AppLocalization.h"
#include "platform/ColorScheme.h"
#include "playback/AudioPlayerController.h"

#include <QKeySequence>
#include <QQmlEngine>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

bool isSettingsCommand(const QKeyEvent& event) {
  // Some desktops have a key of their own for it.
  return event.matches(QKeySequence::Preferences) ||
         (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_Comma);
}

}  // namespace

PanelWindow::PanelWindow(AudioPlayerController& audioPlayer, AppLocalization& localization,
                         ColorScheme& colorScheme)
    : ViewWindow(u"PanelSurface.qml"_s, {{u"audioPlayer"_s, &audioPlayer},
                                         {u"localization"_s, &localization},
                                         {u"colorScheme"_s, &colorScheme}}) {
  connect(engine(), &QQmlEngine::quit, this, &PanelWindow::quitRequested);
}

bool PanelWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::KeyPress:
      m_isUsed = true;
      break;
    default:
      break;
  }
  const bool handled = ViewWindow::event(event);
  if (event->type() == QEvent::Close) {
    Q_EMIT dismissed(Dismissal::deliberate);
  }
  return handled;
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  if (isSettingsCommand(*event)) {
    Q_EMIT settingsRequested();
    return;
  }
  ViewWindow::keyPressEvent(event);
}

}  // namespace mireval
