#include "platform/linux/instance/SingleInstance.h"

#include "platform/linux/bus/WaitFor.h"
#include "platform/linux/instance/SingleInstanceServer.h"
#include "platform/linux/posix/UnixSocketAddress.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <future>
#include <latch>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace mireval {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Outcome = SingleInstance::Outcome;
using Request = SingleInstance::Request;

// Much longer than any test takes; reached only if something hangs.
constexpr auto longest = 20s;

/// Here copies are objects of one process; another process would find the same lock and socket.
class SingleInstanceTest : public testing::Test {
 protected:
  SingleInstance makeCopy() const { return SingleInstance(folder()); }
  SingleInstance makeFirst() const {
    SingleInstance first = makeCopy();
    EXPECT_EQ(first.elect(Request::showPanel), Outcome::elected);
    return first;
  }
  fs::path folder() const { return m_parent.path() / "mireval"; }

  static std::future<Outcome> electElsewhere(SingleInstance& copy, Request request = Request::showPanel,
                                             std::chrono::milliseconds patience = longest) {
    return std::async(std::launch::async,
                      [&copy, request, patience] { return copy.elect(request, patience).value(); });
  }

  static Outcome outcomeOf(std::future<Outcome>& election) {
    EXPECT_TRUE(waitFor([&election] { return election.wait_for(0s) == std::future_status::ready; }, longest));
    return election.get();
  }

  /// What becomes of a later copy.
  Outcome electLater(Request request = Request::showPanel) const {
    SingleInstance later = makeCopy();
    auto election = electElsewhere(later, request);
    const Outcome outcome = outcomeOf(election);
    EXPECT_EQ(later.listeningSocket() >= 0, outcome == Outcome::elected);
    return outcome;
  }

  /// A foreign client, connected to the socket of the first copy.
  FileDescriptor connectClient() const {
    FileDescriptor client(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const auto address = unixSocketAddress((folder() / "socket").native());
    EXPECT_EQ(connect(client.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address), 0);
    return client;
  }

  /// What the first copy has sent: nothing yet, the answer, or an empty text if it closed the connection.
  static std::optional<std::string> receivedBy(const FileDescriptor& client) {
    std::array<char, 16> buffer{};
    const ssize_t length = recv(client.get(), buffer.data(), buffer.size(), 0);
    return length < 0 && errno == EAGAIN
               ? std::nullopt
               : std::optional(
                     std::string(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))));
  }

  static std::string waitForAnswer(const FileDescriptor& client) {
    std::optional<std::string> answer;
    EXPECT_TRUE(waitFor([&] { return (answer = receivedBy(client)).has_value(); }, longest));
    return answer.value_or("nothing");
  }

  const TemporaryFolder m_parent;
  int m_argumentCount = 1;
  char m_programName[5] = "test";
  char* m_arguments[2] = {m_programName, nullptr};
  QCoreApplication m_application{m_argumentCount, m_arguments};
};

/// A first copy that answers and remembers what it was asked.
class ServingCopy {
 public:
  explicit ServingCopy(SingleInstance& instance) : m_server(instance) {
    QObject::connect(&m_server, &SingleInstanceServer::requested, &m_server,
                     [this](Request request) { m_requests.push_back(request); });
  }

  const std::vector<Request>& requests() const { return m_requests; }

 private:
  std::vector<Request> m_requests;
  SingleInstanceServer m_server;
};

TEST_F(SingleInstanceTest, TheFirstCopyIsElectedAtOnce) {
  // Each one is the first when the one before has ended.
  for (int round = 0; round < 3; ++round) {
    SingleInstance first = makeCopy();
    EXPECT_EQ(first.listeningSocket(), -1);
    EXPECT_EQ(first.elect(Request::showPanel, 0ms), Outcome::elected);
    EXPECT_GE(first.listeningSocket(), 0);
  }
  struct stat status {};
  ASSERT_EQ(stat(folder().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(SingleInstanceTest, LaterCopiesHandOverWhatTheyWereAsked) {
  SingleInstance first = makeFirst();
  const ServingCopy serving(first);
  for (const Request request : SingleInstance::allRequests) {
    EXPECT_EQ(electLater(request), Outcome::handedOver);
    EXPECT_EQ(serving.requests().back(), request);
  }
  EXPECT_EQ(serving.requests().size(), SingleInstance::allRequests.size());
}

TEST_F(SingleInstanceTest, TheAnswerComesAfterTheDeed) {
  SingleInstance first = makeFirst();
  const SingleInstanceServer server(first);
  const FileDescriptor client = connectClient();
  std::optional<std::string> receivedDuring;
  bool done = false;
  QObject::connect(&server, &SingleInstanceServer::requested, &server, [&] {
    receivedDuring = receivedBy(client);
    done = true;
  });
  ASSERT_EQ(send(client.get(), "s", 1, 0), 1);
  EXPECT_EQ(waitForAnswer(client), "s");
  EXPECT_TRUE(done);
  EXPECT_EQ(receivedDuring, std::nullopt);
}

TEST_F(SingleInstanceTest, ARequestWaitsForACopyThatIsStillStarting) {
  SingleInstance first = makeFirst();
  SingleInstance later = makeCopy();
  auto election = electElsewhere(later);
  EXPECT_EQ(election.wait_for(100ms), std::future_status::timeout);
  const ServingCopy serving(first);
  EXPECT_EQ(outcomeOf(election), Outcome::handedOver);
}

TEST_F(SingleInstanceTest, ACopyThatDoesNotAnswerIsNotWaitedForWithoutEnd) {
  SingleInstance first = makeFirst();
  SingleInstance later = makeCopy();
  const auto start = Clock::now();
  EXPECT_EQ(later.elect(Request::showPanel, 100ms), Outcome::unanswered);
  EXPECT_GE(Clock::now() - start, 100ms);
  EXPECT_LT(Clock::now() - start, longest);
  // Nor one that holds the lock and has no socket.
  fs::remove(folder() / "socket");
  EXPECT_EQ(later.elect(Request::showPanel, 50ms), Outcome::unanswered);
}

TEST_F(SingleInstanceTest, ACopyWhoseRequestOutlivesTheFirstOneTakesItsPlace) {
  std::optional<SingleInstance> first = makeCopy();
  ASSERT_EQ(first->elect(Request::showPanel), Outcome::elected);
  SingleInstance later = makeCopy();
  auto election = electElsewhere(later);
  EXPECT_EQ(election.wait_for(50ms), std::future_status::timeout);
  first.reset();
  EXPECT_EQ(outcomeOf(election), Outcome::elected);
  // It accepts requests itself.
  const ServingCopy serving(later);
  EXPECT_EQ(electLater(), Outcome::handedOver);
}

TEST_F(SingleInstanceTest, AKilledCopyLeavesNothingInTheWay) {
  std::array<int, 2> ready{};
  ASSERT_EQ(pipe2(ready.data(), O_CLOEXEC), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    SingleInstance copy = makeCopy();
    const char result = copy.elect(Request::showPanel, 0ms) == Outcome::elected ? '1' : '0';
    [[maybe_unused]] const ssize_t written = write(ready[1], &result, 1);
    pause();
    _exit(0);
  }
  char elected = '0';
  EXPECT_EQ(read(ready[0], &elected, 1), 1);
  EXPECT_EQ(elected, '1');
  SingleInstance second = makeCopy();
  EXPECT_EQ(second.elect(Request::showPanel, 20ms), Outcome::unanswered);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  close(ready[0]);
  close(ready[1]);
  EXPECT_TRUE(fs::exists(folder() / "socket"));
  EXPECT_EQ(second.elect(Request::showPanel, 0ms), Outcome::elected);
}

TEST_F(SingleInstanceTest, OfManyAtOnceOneIsElected) {
  constexpr int copies = 10;
  for (int round = 0; round < 5; ++round) {
    std::vector<SingleInstance> instances;
    for (int number = 0; number < copies; ++number) {
      instances.push_back(makeCopy());
    }
    std::latch start(copies);
    std::atomic<SingleInstance*> elected = nullptr;
    std::vector<std::future<Outcome>> elections;
    for (SingleInstance& copy : instances) {
      elections.push_back(std::async(std::launch::async, [&start, &elected, &copy] {
        start.arrive_and_wait();
        const Outcome outcome = copy.elect(Request::showPanel, longest).value();
        if (outcome == Outcome::elected) {
          elected = &copy;
        }
        return outcome;
      }));
    }
    ASSERT_TRUE(waitFor([&elected] { return elected != nullptr; }, longest));
    const ServingCopy serving(*elected);
    std::vector<Outcome> outcomes;
    for (auto& election : elections) {
      outcomes.push_back(outcomeOf(election));
    }
    EXPECT_EQ(std::ranges::count(outcomes, Outcome::elected), 1);
    EXPECT_EQ(std::ranges::count(outcomes, Outcome::handedOver), copies - 1);
    EXPECT_EQ(serving.requests().size(), copies - 1U);
  }
}

TEST_F(SingleInstanceTest, NonsenseIsNeitherActedUponNorAnswered) {
  SingleInstance first = makeFirst();
  const ServingCopy serving(first);
  for (const std::string& nonsense : {std::string("x"), std::string("pp"), std::string("panel"),
                                      std::string(1, '\0'), std::string(100'000, 'p')}) {
    const FileDescriptor client = connectClient();
    ASSERT_EQ(send(client.get(), nonsense.data(), nonsense.size(), 0), static_cast<ssize_t>(nonsense.size()));
    EXPECT_EQ(waitForAnswer(client), "");
  }
  EXPECT_TRUE(serving.requests().empty());
}

TEST_F(SingleInstanceTest, AClientMayLeaveBeforeItsAnswer) {
  SingleInstance first = makeFirst();
  const ServingCopy serving(first);
  {
    const FileDescriptor silent = connectClient();
    const FileDescriptor asking = connectClient();
    ASSERT_EQ(send(asking.get(), "p", 1, 0), 1);
  }
  ASSERT_TRUE(waitFor([&serving] { return serving.requests().size() == 1; }, longest));
  const FileDescriptor client = connectClient();
  ASSERT_EQ(send(client.get(), "p", 1, 0), 1);
  EXPECT_EQ(waitForAnswer(client), "p");
}

TEST_F(SingleInstanceTest, ManySilentClientsKeepNobodyOut) {
  SingleInstance first = makeFirst();
  const ServingCopy serving(first);
  std::vector<FileDescriptor> silent;
  for (int number = 0; number < 200; ++number) {
    silent.push_back(connectClient());
  }
  EXPECT_EQ(electLater(), Outcome::handedOver);
  // Only the most recent ones are kept.
  EXPECT_EQ(receivedBy(silent.front()), "");
  EXPECT_EQ(receivedBy(silent.back()), std::nullopt);
  EXPECT_LE(std::ranges::count_if(silent, [](const FileDescriptor& client) { return !receivedBy(client); }),
            16);
}

TEST_F(SingleInstanceTest, RunningOutOfDescriptorsIsSurvivedWithoutSpinning) {
  SingleInstance first = makeFirst();
  const ServingCopy serving(first);
  QEventLoop loop;
  const FileDescriptor client = connectClient();
  ASSERT_EQ(send(client.get(), "p", 1, 0), 1);
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit few{.rlim_cur = 64, .rlim_max = before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
  std::vector<FileDescriptor> all;
  do {
    all.emplace_back(dup(client.get()));
  } while (all.back().isOpen());
  int wakeUps = 0;
  for (int turn = 0; turn < 100; ++turn) {
    wakeUps += loop.processEvents() ? 1 : 0;
    std::this_thread::sleep_for(1ms);
  }
  all.clear();
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_GE(wakeUps, 1);
  EXPECT_LE(wakeUps, 10);
  EXPECT_TRUE(serving.requests().empty());
  EXPECT_EQ(waitForAnswer(client), "p");
}

TEST_F(SingleInstanceTest, DescriptorsAreNotLeftToOtherPrograms) {
  SingleInstance first = makeFirst();
  const ServingCopy serving(first);
  const FileDescriptor client = connectClient();
  QCoreApplication::processEvents();
  int ours = 0;
  for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
    std::error_code error;
    const std::string target = fs::read_symlink(entry.path(), error).string();
    if (target == (folder() / "lock").string() || target.starts_with("socket:")) {
      const int flags = fcntl(std::stoi(entry.path().filename()), F_GETFD);
      EXPECT_TRUE(flags & FD_CLOEXEC) << target;
      ++ours;
    }
  }
  // The lock, the listening socket, and both ends of the connection.
  EXPECT_GE(ours, 4);
}

TEST_F(SingleInstanceTest, TheFolderIsThatOfTheSession) {
  qputenv("XDG_RUNTIME_DIR", m_parent.path().c_str());
  SingleInstance first = SingleInstance::forCurrentUser();
  EXPECT_FALSE(first.usesTemporaryFolder());
  EXPECT_EQ(first.elect(Request::showPanel), Outcome::elected);
  EXPECT_TRUE(fs::exists(folder() / "lock"));
}

TEST_F(SingleInstanceTest, WithoutTheSessionsFolderATemporaryOneServes) {
  qputenv("TMPDIR", m_parent.path().c_str());
  for (const char* const none : {"", static_cast<const char*>(nullptr)}) {
    none != nullptr ? qputenv("XDG_RUNTIME_DIR", none) : qunsetenv("XDG_RUNTIME_DIR");
    SingleInstance first = SingleInstance::forCurrentUser();
    EXPECT_TRUE(first.usesTemporaryFolder());
    EXPECT_EQ(first.folder(), m_parent.path() / ("mireval-" + std::to_string(geteuid())));
    EXPECT_EQ(first.elect(Request::showPanel), Outcome::elected);
    EXPECT_EQ(fs::status(first.folder()).permissions(), fs::perms::owner_all);
    SingleInstance later = SingleInstance::forCurrentUser();
    EXPECT_EQ(later.elect(Request::showPanel, 20ms), Outcome::unanswered);
  }
  // Another user may have made it, to listen in.
  fs::permissions(SingleInstance::forCurrentUser().folder(), fs::perms::all);
  EXPECT_FALSE(SingleInstance::forCurrentUser().elect(Request::showPanel, 0ms));
  qputenv("TMPDIR", (m_parent.path() / "gone").c_str());
  EXPECT_EQ(SingleInstance::forCurrentUser().folder(), "/tmp/mireval-" + std::to_string(geteuid()));
  qunsetenv("TMPDIR");
}

/// With an unusable folder the copy is on its own, says why, and holds no lock and no socket.
class UnusableFolderTest : public SingleInstanceTest {
 protected:
  static void expectIndependent(const fs::path& folder, const std::string& reason) {
    SingleInstance copy(folder);
    EXPECT_EQ(copy.elect(Request::showPanel, 0ms),
              tl::unexpected<std::string>(folder.native() + ": " + reason));
    EXPECT_EQ(copy.listeningSocket(), -1);
  }

  /// The folder of copies, as a usable one is, with these folders in it.
  void makeFolder(const fs::path& inside = {}) const {
    fs::create_directories(folder() / inside);
    fs::permissions(folder(), fs::perms::owner_all);
  }

  static constexpr const char* notOurs = "not a folder of this user alone";
};

TEST_F(UnusableFolderTest, MissingOrRelative) {
  expectIndependent(m_parent.path() / "gone" / "mireval", "No such file or directory");
  expectIndependent("relative-folder", "not an absolute path");
  EXPECT_FALSE(fs::exists("relative-folder"));
}

TEST_F(UnusableFolderTest, NoFolder) {
  expectIndependent(m_parent.makeFile("file"), notOurs);
  makeFolder();
  fs::create_directory_symlink(folder(), m_parent.path() / "link");
  expectIndependent(m_parent.path() / "link", notOurs);
}

TEST_F(UnusableFolderTest, OpenToOthers) {
  makeFolder();
  for (const auto more : {fs::perms::group_read, fs::perms::group_exec, fs::perms::others_write}) {
    fs::permissions(folder(), fs::perms::owner_all | more);
    expectIndependent(folder(), notOurs);
  }
  makeFolder();
  makeFirst();
}

TEST_F(UnusableFolderTest, OfAnotherUser) {
  makeFolder();
  if (chown(folder().c_str(), 1, 1) != 0) {
    GTEST_SKIP() << "only root can give a folder away";
  }
  expectIndependent(folder(), notOurs);
}

TEST_F(UnusableFolderTest, PathTooLong) {
  const fs::path deep = m_parent.path() / std::string(100, 'd');
  fs::create_directory(deep);
  expectIndependent(deep / "mireval", "the path is too long for a socket");
  EXPECT_FALSE(fs::exists(deep / "mireval"));
}

TEST_F(UnusableFolderTest, LockThatCannotBeOpened) {
  makeFolder("lock");
  expectIndependent(folder(), "Is a directory");
  fs::remove(folder() / "lock");
  fs::create_symlink(m_parent.path() / "elsewhere", folder() / "lock");
  expectIndependent(folder(), "Too many levels of symbolic links");
  EXPECT_FALSE(fs::exists(m_parent.path() / "elsewhere"));
}

TEST_F(UnusableFolderTest, SocketThatCannotBeMade) {
  makeFolder("socket");
  expectIndependent(folder(), "Address already in use");
  // The lock is released, so a later copy does not wait for this one.
  SingleInstance alone = makeCopy();
  EXPECT_FALSE(alone.elect(Request::showPanel, 0ms));
  fs::remove(folder() / "socket");
  makeFirst();
}

}  // namespace
}  // namespace mireval
