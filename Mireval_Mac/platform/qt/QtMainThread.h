#pragma once

#include "platform/MainThread.h"

#include <QObject>

namespace mireval {

/// Runs tasks on the thread that made this object, through Qt's event loop, and releases them there too,
/// with everything they hold.
class QtMainThread final : public MainThread {
 public:
  void async(std::function<void()> task) override;

 private:
  class Receiver final : public QObject {
   protected:
    void customEvent(QEvent* event) override;
  };

  Receiver m_receiver;
};

}  // namespace mireval
