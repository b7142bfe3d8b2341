// Printing through the system's print service: one of the test's own, with a queue that keeps each job as a PDF.
#include <gmock/gmock.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QLibrary>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>

#include "printing/frm_printer.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

constexpr int kPatience = 15000;  // milliseconds

class CupsTest : public testing::Test {
 protected:
  ~CupsTest() override {
    if (service_.state() == QProcess::NotRunning) return;
    service_.terminate();
    if (!service_.waitForFinished(kPatience)) service_.kill();
  }

  /// Starts the service with its queue "paper"; says why where that cannot be.
  std::string Start() {
    const QStringList places{QStringLiteral("/usr/sbin"), QStringLiteral("/usr/bin")};
    const QString daemon = QStandardPaths::findExecutable(QStringLiteral("cupsd"), places);
    lpadmin_ = QStandardPaths::findExecutable(QStringLiteral("lpadmin"), places);
    if (daemon.isEmpty() || lpadmin_.isEmpty()) return "CUPS is not installed";
    for (const char* const part : {"root", "spool", "temp", "cache", "state", "log", "bin", "bin/backend", "out"})
      fs::create_directory(scratch / part);
    for (const char* const part : {"daemon", "filter", "notifier"})
      fs::create_symlink(fs::path("/usr/lib/cups") / part, scratch / (std::string("bin/") + part));
    // The service works for us under another user.
    fs::permissions(scratch.Path(), fs::perms::others_exec | fs::perms::others_read, fs::perm_options::add);
    fs::permissions(scratch / "out", fs::perms::all);
    const std::string here = scratch.Path().string();
    WriteBytes(
        scratch / "bin/backend/keep",
        "#!/bin/sh\n[ $# -eq 0 ] && exit 0\nto=${DEVICE_URI#keep:}\ncat \"${6:--}\" >\"$to/.$1\" && mv \"$to/.$1\" \"$to/$1.pdf\"\n");
    fs::permissions(scratch / "bin/backend/keep", fs::perms(0755));
    WriteBytes(scratch / "root/cupsd.conf", "Listen " + here +
                                                "/socket\nBrowsing Off\nDefaultAuthType None\n<Location />\nAllow all\n</Location>\n"
                                                "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n");
    std::string files = "ServerRoot " + here + "/root\nServerBin " + here + "/bin\nRequestRoot " + here + "/spool\n";
    for (const char* const place :
         {"TempDir /temp", "CacheDir /cache", "StateDir /state", "AccessLog /log/access", "ErrorLog /log/error", "PageLog /log/page"})
      files += std::string(place).replace(std::string_view(place).find('/'), 0, here) + "\n";
    WriteBytes(scratch / "root/cups-files.conf", files);

    const QString folder = QString::fromStdString(here);
    const QByteArray socket = QFile::encodeName(folder + QStringLiteral("/socket"));
    qputenv("CUPS_SERVER", socket);
    if (const auto setServer = reinterpret_cast<void (*)(const char*)>(QLibrary::resolve(QStringLiteral("cups"), 2, "cupsSetServer")))
      setServer(socket.constData());
    service_.start(daemon, QStringLiteral("-f -c %1/root/cupsd.conf -s %1/root/cups-files.conf").arg(folder).split(QLatin1Char(' ')));
    const QDeadlineTimer deadline(kPatience);
    while (!fs::exists(scratch / "socket")) {
      if (deadline.hasExpired() || service_.state() == QProcess::NotRunning) return "the print service does not start here";
      service_.waitForFinished(50);
    }
    if (!Admin(QStringLiteral("-p paper -E -v keep:%1/out -m raw").arg(folder))) return "the print service takes no queue here";
    return {};
  }

  bool Admin(const QString& words) {
    QProcess admin;
    admin.start(lpadmin_, words.split(QLatin1Char(' ')));
    return admin.waitForFinished(kPatience) && admin.exitStatus() == QProcess::NormalExit && admin.exitCode() == 0;
  }

  /// The jobs that have come out, once there are `count` of them.
  std::vector<std::string> Jobs(std::size_t count) {
    const QDeadlineTimer deadline(kPatience);
    std::vector<std::string> jobs;
    do {
      jobs.clear();
      for (const auto& entry : fs::directory_iterator(scratch / "out"))
        if (entry.path().extension() == ".pdf") jobs.push_back(ReadBytes(entry.path()));
      QThread::msleep(20);
    } while (jobs.size() < count && !deadline.hasExpired());
    return jobs;
  }

  ScratchFolder scratch;
  QProcess service_;
  QString lpadmin_;
};

TEST_F(CupsTest, PrintsWholeCopiesAndHearsARefusal) {
  if (const std::string reason = Start(); !reason.empty()) GTEST_SKIP() << reason << ": nothing is printed through it";
  const Document document{.title = "Estimate A-12", .pages = {{"first page"}, {"second page"}, {"third page"}}, .marks = {}};
  SystemPrinters printers;
  ASSERT_TRUE(printers.HasAny());
  PrintSetup setup;
  setup.printer = QStringLiteral("paper");

  // One that is stopped half way leaves nothing in the queue: what comes out is the copies behind it.
  EXPECT_EQ(printers.Print(document, setup, [](std::size_t page) { return page < 2; }).end, PrintEnd::Stopped);
  const PrintOutcome outcome = PrintCopies(printers, document, 3, setup, nullptr);
  EXPECT_EQ(outcome.end, PrintEnd::Done) << outcome.reason;
  EXPECT_EQ(outcome.copies, 3);
  const std::vector<std::string> jobs = Jobs(3);
  EXPECT_THAT(jobs, SizeIs(3));
  for (const std::string& job : jobs) {
    EXPECT_THAT(job, StartsWith("%PDF-"));
    EXPECT_THAT(job, HasSubstr("/Count 3"));
  }

  ASSERT_TRUE(Admin(QStringLiteral("-p paper -o printer-is-accepting-jobs=false")));
  const PrintOutcome refused = PrintCopies(printers, document, 2, setup, nullptr);
  EXPECT_EQ(refused.end, PrintEnd::Failed);
  EXPECT_EQ(refused.copies, 0);
  EXPECT_THAT(refused.reason, HasSubstr("not accepting jobs"));

  service_.terminate();
  ASSERT_TRUE(service_.waitForFinished(kPatience));
  EXPECT_EQ(PrintCopies(printers, document, 1, setup, nullptr).end, PrintEnd::Failed);
}

}  // namespace
}  // namespace norvale
