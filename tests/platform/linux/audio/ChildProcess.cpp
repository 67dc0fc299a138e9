#include "ChildProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace mireval::test {

ChildProcess::ChildProcess(const std::vector<std::string>& command,
                           const std::map<std::string, std::string>& environment,
                           const std::string& errorFile) {
  std::array<int, 2> output{};
  if (pipe2(output.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe");
  }
  std::vector<char*> arguments;
  for (const std::string& word : command) {
    arguments.push_back(const_cast<char*>(word.c_str()));
  }
  arguments.push_back(nullptr);
  m_pid = fork();
  if (m_pid == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const auto& [name, value] : environment) {
      setenv(name.c_str(), value.c_str(), 1);
    }
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(output[1], STDOUT_FILENO);
    dup2(open(errorFile.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600), STDERR_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
  }
  close(output[1]);
  m_output = output[0];
  if (m_pid < 0) {
    close(m_output);
    throw std::runtime_error("no process for " + command.front());
  }
}

ChildProcess::~ChildProcess() {
  if (m_pid > 0) {
    signal(SIGKILL);
    wait();
  }
  close(m_output);
}

void ChildProcess::signal(int number) const {
  if (m_pid > 0) {
    kill(m_pid, number);
  }
}

int ChildProcess::wait() {
  int status = 0;
  if (m_pid > 0) {
    while (waitpid(m_pid, &status, 0) < 0 && errno == EINTR) {
    }
    m_pid = -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

CommandResult runCommand(const std::vector<std::string>& command,
                         const std::map<std::string, std::string>& environment) {
  ChildProcess process(command, environment);
  std::string text;
  std::array<char, 4096> block{};
  ssize_t count = 0;
  while ((count = read(process.outputDescriptor(), block.data(), block.size())) > 0) {
    text.append(block.data(), static_cast<std::size_t>(count));
  }
  const int status = process.wait();
  return {status, std::move(text)};
}

}  // namespace mireval::test
