#pragma once

#include "platform/MainThread.h"

#include <QObject>

namespace mireval {

/// Runs tasks in the Qt event loop of the thread that created this object. Tasks are destroyed there too,
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
