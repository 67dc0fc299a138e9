#include "platform/linux/audio/PulseServer.h"

#include "platform/Notices.h"

#include <pulse/rtclock.h>
#include <pulse/subscribe.h>
#include <pulse/timeval.h>

#include <sys/time.h>

#include <algorithm>
#include <cstdint>
#include <thread>
#include <utility>

namespace mireval {
namespace {

/// Connects once, which starts a server if libpulse is configured for that, and leaves again.
void startServer() {
  constexpr pa_usec_t patience = 30 * PA_USEC_PER_SEC;
  const PulsePointer<pa_mainloop> loop(pa_mainloop_new());
  if (!loop) {
    // No descriptors are left.
    return;
  }
  const PulsePointer<pa_context> context(pa_context_new(pa_mainloop_get_api(loop.get()), "Mireval"));
  if (!context || pa_context_connect(context.get(), nullptr, PA_CONTEXT_NOFLAGS, nullptr) < 0) {
    return;
  }
  pa_context_rttime_new(
      context.get(), pa_rtclock_now() + patience,
      [](pa_mainloop_api* api, pa_time_event*, const timeval*, void*) { api->quit(api, 0); }, nullptr);
  while (pa_context_get_state(context.get()) != PA_CONTEXT_READY &&
         PA_CONTEXT_IS_GOOD(pa_context_get_state(context.get())) &&
         pa_mainloop_iterate(loop.get(), 1, nullptr) >= 0) {
  }
}

}  // namespace

PulseServer::Lock::Lock(PulseServer& server) : m_server(server) {
  pa_threaded_mainloop_lock(m_server.m_mainloop.get());
}

PulseServer::Lock::~Lock() {
  pa_threaded_mainloop_unlock(m_server.m_mainloop.get());
}

PulseServer::Timer::Timer(PulseServer& server, std::function<void()> action)
    : m_api(server.loop()), m_action(std::move(action)) {}

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

PulsePointer<pa_threaded_mainloop> PulseServer::makeMainloop() {
  return PulsePointer<pa_threaded_mainloop>(pa_threaded_mainloop_new());
}

PulseServer::PulseServer(PulsePointer<pa_threaded_mainloop> mainloop, Notices& notices)
    : m_notices(notices), m_mainloop(std::move(mainloop)) {
  pa_threaded_mainloop_set_name(m_mainloop.get(), "mireval-audio");
  pa_threaded_mainloop_start(m_mainloop.get());
}

PulseServer::~PulseServer() {
  const Lock lock(*this);
  m_context.reset();
}

bool PulseServer::connect() {
  if (m_context) {
    return true;
  }
  const PulsePointer<pa_proplist> properties(pa_proplist_new());
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Mireval");
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, "mireval");
  pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, "music");
  // Our volume is our own: by its role alone, a stream would get that of other music.
  pa_proplist_sets(properties.get(), "module-stream-restore.id", "sink-input-by-application-name:Mireval");
  m_context.reset(pa_context_new_with_proplist(&loop(), nullptr, properties.get()));
  // Without a server this fails at once. libpulse would wait for one that it starts.
  if (!m_context || pa_context_connect(m_context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
    m_context.reset();
    return false;
  }
  pa_context_set_state_callback(
      m_context.get(),
      [](pa_context*, void* self) { static_cast<PulseServer*>(self)->contextStateChanged(); }, this);
  return true;
}

void PulseServer::askForServer() {
  if (!std::exchange(m_hasAskedForServer, true)) {
    m_notices.say("no sound server answers; the music waits for one");
    // Detached: nobody knows how long a server takes to start, and the player may end before.
    std::thread(startServer).detach();
  }
}

void PulseServer::contextStateChanged() {
  switch (pa_context_get_state(m_context.get())) {
    case PA_CONTEXT_READY:
      m_hasAskedForServer = false;
      tellReady();
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

void PulseServer::tellReady() {
  for (Client* const client : m_clients) {
    client->serverReady();
  }
}

void PulseServer::awaitSink() {
  if (pa_context* const context = readyContext(); ++m_sinkAwaiters == 1 && context != nullptr) {
    pa_context_set_subscribe_callback(
        context,
        [](pa_context*, pa_subscription_event_type_t event, std::uint32_t, void* self) {
          if ((event & PA_SUBSCRIPTION_EVENT_TYPE_MASK) == PA_SUBSCRIPTION_EVENT_NEW) {
            static_cast<PulseServer*>(self)->tellReady();
          }
        },
        this);
    const PulsePointer<pa_operation> subscribing(
        pa_context_subscribe(context, PA_SUBSCRIPTION_MASK_SINK, nullptr, nullptr));
  }
}

void PulseServer::awaitNoSink() {
  if (pa_context* const context = readyContext(); --m_sinkAwaiters == 0 && context != nullptr) {
    pa_context_set_subscribe_callback(context, nullptr, nullptr);
    const PulsePointer<pa_operation> unsubscribing(
        pa_context_subscribe(context, PA_SUBSCRIPTION_MASK_NULL, nullptr, nullptr));
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
