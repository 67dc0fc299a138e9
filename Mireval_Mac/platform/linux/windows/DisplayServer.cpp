#include "platform/linux/windows/DisplayServer.h"

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/posix/UnixSocketAddress.h"

#include <QByteArray>
#include <QByteArrayList>

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cerrno>
#include <csignal>

namespace mireval {
namespace {

enum class Answer { yes, no, notInTime };

bool x11Answers() {
  int screen = 0;
  xcb_connection_t* const connection = xcb_connect(nullptr, &screen);
  // That is an error, too, if the display has no such screen.
  return xcb_connection_has_error(connection) == 0;
}

/// In a child process, which a signal ends where the server is silent: the call itself has no time limit.
Answer askX11(std::chrono::seconds patience) {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) {
    return Answer::no;
  }
  const pid_t child = fork();
  if (child < 0) {
    return x11Answers() ? Answer::yes : Answer::no;
  }
  if (child == 0) {
    std::signal(SIGALRM, SIG_DFL);
    sigset_t alarmOnly{};
    sigemptyset(&alarmOnly);
    sigaddset(&alarmOnly, SIGALRM);
    sigprocmask(SIG_UNBLOCK, &alarmOnly, nullptr);
    alarm(static_cast<unsigned int>(patience.count()));
    _exit(x11Answers() ? 0 : 1);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) {
      // Somebody made the system forget the exit status of children.
      return x11Answers() ? Answer::yes : Answer::no;
    }
  }
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) {
    return Answer::notInTime;
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Answer::yes : Answer::no;
}

bool waylandAnswers() {
  QByteArray path = qgetenv("WAYLAND_DISPLAY");
  if (path.isEmpty()) {
    return false;
  }
  if (!path.startsWith('/')) {
    path = qgetenv("XDG_RUNTIME_DIR") + '/' + path;
  }
  const auto address = unixSocketAddress(path.toStdString());
  const FileDescriptor connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  return address && connection.isOpen() &&
         connect(connection.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0;
}

}  // namespace

UsableDisplays findUsableDisplays(const QByteArray& platforms, std::chrono::seconds patience) {
  UsableDisplays displays;
  QByteArrayList left = platforms.split(';');
  while (!left.isEmpty()) {
    const QByteArray& platform = left.constFirst();
    Answer answer = Answer::yes;
    if (platform.startsWith("xcb")) {
      answer = askX11(patience);
      displays.x11IsSilent |= answer == Answer::notInTime;
    } else if (platform.startsWith("wayland")) {
      answer = waylandAnswers() ? Answer::yes : Answer::no;
    }
    if (answer == Answer::yes) {
      break;
    }
    left.removeFirst();
  }
  displays.platforms = left.join(';');
  return displays;
}

}  // namespace mireval
