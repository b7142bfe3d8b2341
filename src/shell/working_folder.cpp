#include "shell/working_folder.h"

#include <algorithm>

#include "data/folder_start.h"
#include "desktop/program.h"
#include "prices/new_folder.h"

namespace norvale {

namespace {

constexpr std::size_t kFaultsShown = 5;

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
  return text;
}

std::string TextOf(const std::vector<Fault>& faults) {
  std::string text;
  for (std::size_t i = 0; i < std::min(faults.size(), kFaultsShown); ++i) text += "\n" + faults[i].text;
  if (faults.size() > kFaultsShown) text += "\nand " + std::to_string(faults.size() - kFaultsShown) + " more";
  return text;
}

// Whether the folder holds all that the program works with, or the operator wants the rest laid.
bool IsComplete(DataFolder& folder, Messages& messages) {
  const FolderContents contents = LookIntoFolder(folder);
  if (contents.missing.empty()) return true;
  if (messages.ShowMessage(LayQuestion(contents.missing, contents.holdsNone)) != Answer::Yes) return false;
  LayDeliveredFiles(folder);
  return true;
}

bool IsFit(DataFolder& folder, Session& session, Messages& messages) {
  FolderStart start = StartFolder(folder, session);
  if (!start.MayWork()) {
    const std::string question = "2 The customer and plan files are damaged:\n" + WithoutBars(TextOf(start.faults)) +
                                 "\n\nMend them now? No record is lost. With NO the program ends and changes nothing.|Damaged Files";
    if (messages.ShowMessage(question) != Answer::Yes) return false;
    (void)RepairFolder(folder);  // the start tells what is left
    start = StartFolder(folder, session);
  }
  if (!start.faults.empty()) messages.ShowMessage(Notice("Something in the files needs your eye:\n" + TextOf(start.faults)));
  return start.MayWork();
}

}  // namespace

std::unique_ptr<DataFolder> OpenWorkingFolder(const std::filesystem::path& path, Session& session, Messages& messages, Disk& disk) {
  try {
    auto folder = std::make_unique<DataFolder>(path, disk);
    if (IsComplete(*folder, messages) && IsFit(*folder, session, messages)) return folder;
  } catch (const FileError& error) {
    messages.ShowMessage(Notice("Norvale cannot work in this folder.\n\n" + error.File() + ": " + error.Reason()));
  }
  return nullptr;
}

std::string LayQuestion(const std::vector<std::string>& missing, bool holdsNone) {
  if (holdsNone)
    return "2 This folder holds no Norvale files. Lay the delivered ones here: screens, material lists, prices, and empty files for "
           "customers and plans?|New Working Folder";
  return "2 Some of Norvale's files are not in this folder: " + Joined(missing) +
         ".\n\nIf it is the wrong folder, or they were lost, answer NO and bring them back. With YES the delivered files are laid as "
         "they come and missing customer or plan files begin empty; nothing that is here is touched.|Missing Files";
}

}  // namespace norvale
