#include <memory>

#include "data/backup.h"
#include "data/folder_start.h"
#include "tool/commands.h"

namespace norvale {

namespace {

std::string Line(const Backup& backup) {
  return backup.name + "  customers " + std::to_string(backup.customers) + ", plans " + std::to_string(backup.plans) + '\n';
}

void RunBackup(const CommandContext& context, bool onlyLists) {
  std::string report;
  if (onlyLists) {
    for (const Backup& backup : ListBackups(SystemDisk(), context.folder)) report += Line(backup);
  } else {
    DataFolder folder(context.folder);
    Session session;
    (void)StartFolder(folder, session);  // what it cannot mend, the backup refuses
    const auto made = MakeBackup(folder, BackupReason::Hand, LocalNow());
    report = made ? Line(*made) : "nothing has changed since\n" + Line(ListBackups(folder.Files(), context.folder).front());
  }
  Deliver(report, "");
}

void RunRestore(const CommandContext& context, const std::string& name) {
  DataFolder folder(context.folder);
  RestoreBackup(folder, name, LocalNow());
  Session session;
  (void)StartFolder(folder, session);
}

}  // namespace

void AddBackupCommands(CLI::App& app, const CommandContext& context) {
  auto onlyLists = std::make_shared<bool>(false);
  CLI::App* const backup =
      app.add_subcommand("backup", "Makes a dated copy of the folder in its folder \"backups\" and keeps the last ten");
  backup->add_flag("--list", *onlyLists, "Only lists them, the newest first");
  backup->callback([&context, onlyLists] { RunBackup(context, *onlyLists); });

  auto name = std::make_shared<std::string>();
  CLI::App* const restore = app.add_subcommand("restore", "Brings a backup back; what it replaces is kept as a backup of its own");
  restore->add_option("NAME", *name, "The backup, as \"backup --list\" names it")->required();
  restore->callback([&context, name] { RunRestore(context, *name); });
}

}  // namespace norvale
