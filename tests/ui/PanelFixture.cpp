#include "ui/PanelFixture.h"

#include "library/LocalLibraryProvider.h"
#include "ui/DropDownPanel.h"
#include "ui/FramedPanel.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QStyleHints>
#include <QtTest/QTest>

#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

// By way of the visual parents: a repeater's items have no QObject parent.
QQuickItem* findItem(QQuickItem* root, const QString& name) {
  if (root == nullptr || root->objectName() == name) {
    return root;
  }
  const auto children = root->childItems();
  for (QQuickItem* const child : children) {
    if (QQuickItem* const found = findItem(child, name)) {
      return found;
    }
  }
  return nullptr;
}

std::unique_ptr<PanelWindow> opened(std::unique_ptr<PanelWindow> panel) {
  panel->open();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(panel.get()));
  return panel;
}

}  // namespace

PanelFixture::PanelFixture() : PanelFixture(std::make_unique<LocalLibraryProvider>()) {}

PanelFixture::PanelFixture(std::unique_ptr<AudioLibraryProviding> provider) {
  // Two clicks in a row are no double click.
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(0);
  constexpr int tracksPerMood = 16;
  for (const Mood mood : allMoods) {
    for (int number = 1; number <= tracksPerMood; ++number) {
      m_bundle.add(u"PreviewAudio/%1-%2.m4a"_s.arg(rawValue(mood)).arg(number));
    }
  }
  m_controller = AudioPlayerController::create(
      std::move(provider),
      PlaybackServices{m_bundle, m_factory, m_runLoop, m_mainThread, m_remoteCommandCenter,
                       m_nowPlayingInfoCenter, m_imageDecoder, m_debugOutput});
}

std::unique_ptr<PanelWindow> PanelFixture::makePanel(const QRect& icon, Shadow shadow) {
  auto panel =
      std::make_unique<DropDownPanel>(icon, m_windowSystem, *m_controller, m_localization, m_colorScheme);
  if (shadow == Shadow::without) {
    panel->rootObject()->setProperty("shaded", false);
  }
  panel->setSettingsOpen(m_staysOpen);
  return opened(std::move(panel));
}

std::unique_ptr<PanelWindow> PanelFixture::makeFramedPanel() {
  return opened(std::make_unique<FramedPanel>("", *m_controller, m_localization, m_colorScheme));
}

QQuickItem* PanelFixture::item(const PanelWindow& panel, const char* name, const char* inside) const {
  QQuickItem* const owner = findItem(panel.rootObject(), QString::fromUtf8(name));
  QQuickItem* const found = inside == nullptr ? owner : findItem(owner, QString::fromUtf8(inside));
  EXPECT_NE(found, nullptr) << name;
  return found == nullptr ? &m_noItem : found;
}

QString PanelFixture::text(const PanelWindow& panel, const char* name) const {
  return item(panel, name)->property("text").toString();
}

QString PanelFixture::symbol(const PanelWindow& panel, const char* button) const {
  return item(panel, button, "symbol")->property("name").toString();
}

void PanelFixture::press(PanelWindow& panel, const char* button) const {
  const QQuickItem* const pressed = item(panel, button);
  const QPointF centre = pressed->mapToScene(QPointF(pressed->width() / 2, pressed->height() / 2));
  QTest::mouseClick(&panel, Qt::LeftButton, {}, centre.toPoint());
}

void PanelFixture::runEventLoopOnce() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
}

void PanelFixture::speak(const char* languageTag) {
  m_systemLanguages.setPreferredLanguages({QString::fromUtf8(languageTag)});
  Q_EMIT m_localeChanges.currentLocaleDidChange();
  m_mainThread.runAll();
}

}  // namespace mireval
