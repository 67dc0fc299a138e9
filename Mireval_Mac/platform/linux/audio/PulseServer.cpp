#include "platform/linux/audio/PulseServer.h"

#include <pulse/error.h>
#include <pulse/timeval.h>

#include <sys/time.h>

#include <algorithm>
#include <utility>

namespace mireval {

PulseServer::Lock::Lock(PulseServer& server) : m_server(server) {
  pa_threaded_mainloop_lock(m_server.m_mainloop.get());
}

PulseServer::Lock::~Lock() {
  pa_threaded_mainloop_unlock(m_server.m_mainloop.get());
}

PulseServer::Timer::Timer(PulseServer& server, std::function<void()> action)
    : m_api(*pa_threaded_mainloop_get_api(server.m_mainloop.get())), m_action(std::move(action)) {}

PulseServer::Timer::~Timer() {
  stop();
}

void PulseServer::Timer::start(std::chrono::microseconds delay) {
  timeval when{};
  pa_gettimeofday(&when);
  pa_timeval_add(&when, static_cast<pa_usec_t>(std::max<std::int64_t>(delay.count(), 0)));
  if (m_event != nullptr) {
    m_api.time_restart(m_event, &when);
    return;
  }
  m_event = m_api.time_new(
      &m_api, &when,
      [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
        auto& timer = *static_cast<Timer*>(self);
        timer.stop();
        const std::function<void()> action = timer.m_action;
        action();
      },
      this);
}

void PulseServer::Timer::stop() {
  if (m_event != nullptr) {
    m_api.time_free(std::exchange(m_event, nullptr));
  }
}

PulseServer::PulseServer() : m_mainloop(pa_threaded_mainloop_new()) {
  pa_threaded_mainloop_set_name(m_mainloop.get(), "mireval-audio");
  pa_threaded_mainloop_start(m_mainloop.get());
}

PulseServer::~PulseServer() {
  const Lock lock(*this);
  m_context.reset();
}

tl::expected<void, QString> PulseServer::connect() {
  if (m_context) {
    return {};
  }
  const PulsePointer<pa_proplist> properties(pa_proplist_new());
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Mireval");
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, "mireval");
  m_context.reset(pa_context_new_with_proplist(pa_threaded_mainloop_get_api(m_mainloop.get()), nullptr,
                                               properties.get()));
  if (!m_context) {
    return tl::make_unexpected(QString::fromUtf8(pa_strerror(PA_ERR_INTERNAL)));
  }
  // Without a server this fails at once.
  if (pa_context_connect(m_context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
    const QString error = QString::fromUtf8(pa_strerror(pa_context_errno(m_context.get())));
    m_context.reset();
    return tl::make_unexpected(error);
  }
  pa_context_set_state_callback(
      m_context.get(),
      [](pa_context*, void* self) { static_cast<PulseServer*>(self)->contextStateChanged(); }, this);
  return {};
}

void PulseServer::contextStateChanged() {
  switch (pa_context_get_state(m_context.get())) {
    case PA_CONTEXT_READY:
      for (Client* const client : m_clients) {
        client->serverReady();
      }
      break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
      m_context.reset();
      for (Client* const client : m_clients) {
        client->serverLost();
      }
      break;
    default:
      break;
  }
}

pa_context* PulseServer::readyContext() const {
  const bool ready = m_context && pa_context_get_state(m_context.get()) == PA_CONTEXT_READY;
  return ready ? m_context.get() : nullptr;
}

void PulseServer::addClient(Client& client) {
  m_clients.push_back(&client);
}

void PulseServer::removeClient(Client& client) {
  std::erase(m_clients, &client);
}

}  // namespace mireval
