#include "platform/linux/tray/TrayMenuBarExtra.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QStyleHints>

#include <chrono>
#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

// A bar that crashed is started again.
constexpr auto timeForBarToRestart = 2s;

std::optional<QRect> pixel(std::optional<QPoint> point) {
  return point ? std::optional(QRect(*point, QSize(1, 1))) : std::nullopt;
}

}  // namespace

TrayMenuBarExtra::TrayMenuBarExtra(MessageBus& sessionBus, Services services)
    : m_sessionBus(sessionBus), m_services(std::move(services)) {
  m_embedLater.setSingleShot(true);
  connect(&m_embedLater, &QTimer::timeout, this, &TrayMenuBarExtra::embed);
  m_patience.setSingleShot(true);
  connect(&m_patience, &QTimer::timeout, this, [this] { m_handlers.missing(); });
}

TrayMenuBarExtra::~TrayMenuBarExtra() = default;

void TrayMenuBarExtra::show(const std::filesystem::path& image, Handlers handlers) {
  m_image = image;
  m_handlers = std::move(handlers);
  // Only Qt's Wayland windows use tokens.
  const bool usesTokens = QGuiApplication::platformName().startsWith("wayland"_L1);
  using Tokens = StatusNotifierItem::ActivationTokens;
  m_item = std::make_unique<StatusNotifierItem>(m_sessionBus, image,
                                                usesTokens ? Tokens::wanted : Tokens::unwanted);
  connect(m_item.get(), &StatusNotifierItem::placementChanged, this, &TrayMenuBarExtra::followItem);
  // Queued, because the handler may run an event loop, and the host gets its answer before that.
  connect(m_item.get(), &StatusNotifierItem::activated, this, &TrayMenuBarExtra::handleClickOnItem,
          Qt::QueuedConnection);
  m_item->setToolTip(m_toolTip);
  m_patience.start(m_services.patienceAtStart);
  m_item->appear();
}

void TrayMenuBarExtra::setToolTip(const QString& text) {
  m_toolTip = text;
  if (m_item) {
    m_item->setToolTip(text);
  }
  if (m_embedded) {
    tellToolTip();
  }
}

bool TrayMenuBarExtra::isPlaced() const {
  return (m_item && m_item->placement() == StatusNotifierItem::Placement::placed) ||
         (m_embedded && m_embedded->isPlaced());
}

void TrayMenuBarExtra::followItem() {
  if (m_item->placement() == StatusNotifierItem::Placement::placed) {
    m_itemHasBeenPlaced = true;
    m_embedLater.stop();
    m_embedded.reset();
  } else {
    m_embedLater.start(m_itemHasBeenPlaced ? timeForBarToRestart : 0s);
  }
  followPlacement();
}

void TrayMenuBarExtra::embed() {
  m_embedded = m_services.embed(m_image);
  if (m_embedded) {
    connect(m_embedded.get(), &EmbeddedIcon::activated, this, &TrayMenuBarExtra::handleClickOnEmbedded);
    connect(m_embedded.get(), &EmbeddedIcon::placementChanged, this, &TrayMenuBarExtra::followPlacement);
    tellToolTip();
    followPlacement();
  }
}

void TrayMenuBarExtra::followPlacement() {
  const bool placed = isPlaced();
  if (std::exchange(m_wasPlaced, placed) == placed) {
    return;
  }
  if (placed) {
    m_patience.stop();
    m_handlers.placed();
  } else {
    m_patience.start(m_services.patienceAfterLoss);
    m_handlers.lost();
  }
}

void TrayMenuBarExtra::handleClickOnItem(std::optional<QPoint> told) {
  press([this, told] {
    return pixel(m_item->host().placeOf(
        {.told = m_services.hostsTellPlaces ? told : std::nullopt, .pointer = m_services.pointer()}));
  });
}

void TrayMenuBarExtra::handleClickOnEmbedded(std::optional<QRect> place) {
  press([this, place] { return place ? place : pixel(m_services.pointer()); });
}

void TrayMenuBarExtra::press(const std::function<std::optional<QRect>()>& findPlace) {
  const bool continues =
      m_sinceLastPress.isValid() &&
      !m_sinceLastPress.hasExpired(QGuiApplication::styleHints()->mouseDoubleClickInterval());
  m_sinceLastPress.start();
  if (!continues) {
    m_handlers.activated(findPlace());
    // Opening the panel takes time. Presses that came meanwhile are handled next.
    m_sinceLastPress.start();
  }
}

void TrayMenuBarExtra::tellToolTip() {
  const QString name = QCoreApplication::applicationName();
  m_embedded->setToolTip(m_toolTip.isEmpty() ? name : name + QLatin1Char('\n') + m_toolTip);
}

}  // namespace mireval
