#include "prices/new_folder.h"

#include <array>
#include <string_view>

#include "base/files.h"
#include "prices/delivered.h"

namespace norvale {

namespace {

struct DeliveredFile {
  std::string_view name;
  std::string (*bytes)();
};
constexpr std::array<DeliveredFile, 3> kDeliveredFiles = {{
    {kScreenFileName, DeliveredScreenFile},
    {kMaterialFileName, DeliveredMaterialFile},
    {kPriceFileName, DeliveredPriceFile},
}};

// An index alone is made from its records. Waste factors that are not stored are the delivered ones.
constexpr std::array<std::string_view, 2> kRecordFiles = {CustomerDataFile, EstimateDataFile};
constexpr std::array<std::string_view, 3> kOtherFiles = {CustomerIndexFile, EstimateIndexFile, kWasteFileName};

bool IsThere(const DataFolder& folder, std::string_view name) {
  return folder.Files().Open(folder.Folder() / name, Opening::Read) != nullptr;
}

}  // namespace

FolderContents LookIntoFolder(const DataFolder& folder) {
  FolderContents contents;
  bool holdsAny = false;
  const auto look = [&](std::string_view name) {
    if (IsThere(folder, name))
      holdsAny = true;
    else
      contents.missing.emplace_back(name);
  };
  for (const DeliveredFile& file : kDeliveredFiles) look(file.name);
  for (const std::string_view name : kRecordFiles) look(name);
  for (const std::string_view name : kOtherFiles) holdsAny = holdsAny || IsThere(folder, name);
  contents.holdsNone = !holdsAny;
  return contents;
}

void LayDeliveredFiles(DataFolder& folder) {
  for (const DeliveredFile& file : kDeliveredFiles)
    if (!IsThere(folder, file.name)) ReplaceFile(folder.Files(), folder.Folder() / file.name, file.bytes());
}

}  // namespace norvale
