// The description of the plan file is made of the same rows as the code that reads it.
#include <gtest/gtest.h>

#include "base/files.h"
#include "data/estimate_record.h"

namespace norvale {
namespace {

TEST(FileFormats, DescribeEachFieldOfAPlanAsItIsRead) {
  const std::string page = ReadWholeFile(NORVALE_SOURCE_DIR "/docs/file_formats.md");
  std::size_t row = 0;
  ForEachField(RecordFields<EstimateRecord>::table, [&](const auto& field) {
    const FieldMeaning& told = kEstimateFieldMeanings[row++];
    std::string line = "| " + std::to_string(field.offset) + " | " + std::to_string(std::decay_t<decltype(field)>::kWidth) + " | `";
    line.append(field.name).append("` | ").append(told.unit).append(" | ").append(told.meaning).append(" |\n");
    EXPECT_NE(page.find(line), std::string::npos) << line;
  });
}

}  // namespace
}  // namespace norvale
