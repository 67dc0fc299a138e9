#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace mireval::test {

/// A program that a test starts. It ends with the object, and also when the test crashes.
class ChildProcess {
 public:
  /// Starts `command` (looked up in PATH) with `environment` added to this process's. Its standard output
  /// can be read from `outputDescriptor()`; its standard error goes to `errorFile`, or nowhere.
  explicit ChildProcess(const std::vector<std::string>& command,
                        const std::map<std::string, std::string>& environment = {},
                        const std::string& errorFile = "/dev/null");
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  /// Kills the program if it still runs.
  ~ChildProcess();

  int outputDescriptor() const { return m_output; }
  void signal(int number) const;
  /// Waits for the end and returns the exit status, or -1 when a signal ended it.
  int wait();

 private:
  pid_t m_pid = -1;
  int m_output = -1;
};

/// Runs a program to its end; returns its exit status and what it wrote to standard output.
struct CommandResult {
  int status;
  std::string output;
};
CommandResult runCommand(const std::vector<std::string>& command,
                         const std::map<std::string, std::string>& environment = {});

}  // namespace mireval::test
