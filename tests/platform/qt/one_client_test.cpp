#include "platform/qt/one_client.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTest>
#include <array>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "support/qt/qt_test.h"
#include "support/temporary_folder.h"

namespace parlorwire {

using Folder = std::filesystem::path;

class OneClientTest : public QObject {
  Q_OBJECT

 private slots:
  void ASecondOneAsksTheFirst() {
    const TemporaryFolder folder;
    OneClient first(folder.path());
    QVERIFY(first.First());
    std::vector<std::string> tokens;
    first.Asked = [&](const std::string& token) { tokens.push_back(token); };
    QCOMPARE(Ask(folder.path(), "token_TIME5"), kAnswered);
    QTRY_COMPARE(tokens, std::vector<std::string>{"token_TIME5"});
    QCOMPARE(Ask(folder.path(), ""), kAnswered);
    QTRY_COMPARE(tokens.size(), std::size_t{2});
  }

  void FoldersDoNotKnowOfEachOther() {
    const TemporaryFolder one, other;
    const OneClient first(one.path());
    const OneClient second(other.path());
    QVERIFY(first.First());
    QVERIFY(second.First());
  }

  void AFolderIsTheSameByAnyPath() {
    const TemporaryFolder folder, links;
    const Folder link = Folder(links.path()) / "link";
    std::filesystem::create_directory_symlink(folder.path(), link);
    const OneClient first(folder.path());
    QVERIFY(!OneClient(link).First());
    QVERIFY(!OneClient(Folder(folder.path()) / ".").First());
  }

  void ThePathMayBeVeryLong() {
    const TemporaryFolder folder;
    Folder deep = folder.path();
    for (int i = 0; i < 12; ++i)
      deep /= std::string(200, 'x');
    std::filesystem::create_directories(deep);
    OneClient first(deep);
    QVERIFY(first.First());
    bool asked = false;
    first.Asked = [&](const std::string&) { asked = true; };
    QCOMPARE(Ask(deep, ""), kAnswered);
    QTRY_VERIFY(asked);
  }

  void LeavesNoFile() {
    const TemporaryFolder folder;
    const OneClient first(folder.path());
    QVERIFY(std::filesystem::is_empty(folder.path()));
  }

  void WhoHasLeftDoesNotStandInTheWay() {
    const TemporaryFolder folder;
    {
      const OneClient first(folder.path());
    }
    QVERIFY(OneClient(folder.path()).First());
  }

  void AKilledOneDoesNotStandInTheWay() {
    const TemporaryFolder folder;
    std::array<int, 2> ready{};
    QCOMPARE(pipe(ready.data()), 0);
    const pid_t killed = fork();
    if (killed == 0) {
      const OneClient first(folder.path());
      const char byte = first.First() ? 'y' : 'n';
      if (write(ready[1], &byte, 1) == 1) pause();
      _exit(0);
    }
    char was_first = 0;
    QCOMPARE(read(ready[0], &was_first, 1), ssize_t{1});
    QCOMPARE(was_first, 'y');
    QVERIFY(!OneClient(folder.path()).First());
    kill(killed, SIGKILL);
    waitpid(killed, nullptr, 0);
    close(ready[0]);
    close(ready[1]);
    QVERIFY(OneClient(folder.path()).First());
  }

  void AFolderThatIsNotThereHasAFirst() {
    const TemporaryFolder folder;
    QVERIFY(OneClient(Folder(folder.path()) / "none").First());
  }

  // Whoever connects without a question is not taken for a start, and holds nothing up for long.
  void AConnectionWithoutAQuestionAsksForNothing() {
    const TemporaryFolder folder;
    OneClient first(folder.path());
    int asked = 0;
    first.Asked = [&](const std::string&) { ++asked; };
    const int silent = Connect(folder.path());
    QVERIFY(silent >= 0);
    const int closed = Connect(folder.path());
    QVERIFY(closed >= 0);
    close(closed);
    const int endless = Connect(folder.path());
    const std::string much(100'000, 'x');
    QVERIFY(send(endless, much.data(), much.size(), MSG_NOSIGNAL | MSG_DONTWAIT) > 4096);
    QCOMPARE(Ask(folder.path(), ""), kAnswered);
    QTRY_COMPARE(asked, 1);
    close(silent);
    close(endless);
  }

  void ATokenWithoutAnEndIsNotSent() {
    const TemporaryFolder folder;
    OneClient first(folder.path());
    std::vector<std::string> tokens;
    first.Asked = [&](const std::string& token) { tokens.push_back(token); };
    QCOMPARE(Ask(folder.path(), std::string(5000, 't')), kAnswered);
    QTRY_COMPARE(tokens, std::vector<std::string>{""});
  }

 private:
  enum Outcome { kFirst, kAnswered, kUnanswered };

  // A second start, beside the event loop of the first.
  static Outcome Ask(const Folder& folder, const std::string& token) {
    std::atomic<bool> done = false;
    Outcome outcome = kFirst;
    std::thread start([&] {
      OneClient second(folder);
      if (!second.First()) outcome = second.AskFirst(token) ? kAnswered : kUnanswered;
      done = true;
    });
    while (!done)
      QTest::qWait(5);
    start.join();
    return outcome;
  }

  static int Connect(const Folder& folder) {
    struct stat about{};
    if (stat(folder.c_str(), &about) != 0) return -1;
    const std::string text = "parlorwire-" + std::to_string(geteuid()) + "-" +
                             std::to_string(about.st_dev) + "-" + std::to_string(about.st_ino);
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    text.copy(&name.sun_path[1], sizeof name.sun_path - 1);
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    if (::connect(connection, reinterpret_cast<const sockaddr*>(&name), length) == 0)
      return connection;
    close(connection);
    return -1;
  }
};

}  // namespace parlorwire

EVENT_LOOP_TEST(parlorwire::OneClientTest)
#include "one_client_test.moc"
