#pragma once

#include "platform/DropDown.h"

#include <QRegion>
#include <QWindow>

namespace mireval {

/// A frameless window that goes where it is put.
class FakeDropDown final : public DropDown {
 public:
  explicit FakeDropDown(QWindow& window) : m_window(window) { m_window.setFlags(Qt::FramelessWindowHint); }

  void moveTo(QScreen& screen, const QRect&, QPoint position) override {
    m_window.setScreen(&screen);
    m_window.setPosition(position);
  }

  void setShape(const QRegion& pixels, Outside outside) override {
    m_shape = pixels;
    m_outside = outside;
  }

  void show() override {
    m_window.show();
    activate();
  }

  void activate() override {
    m_window.requestActivate();
    ++m_activations;
  }

  void setExclusive(bool exclusive) override { m_exclusive = exclusive; }

  /// How often it asked for the keyboard.
  int activations() const { return m_activations; }
  bool isExclusive() const { return m_exclusive; }

  const QRegion& shape() const { return m_shape; }
  Outside outside() const { return m_outside; }

 private:
  bool m_exclusive = true;
  int m_activations = 0;
  QWindow& m_window;
  QRegion m_shape;
  Outside m_outside = Outside::hidden;
};

}  // namespace mireval
