// Printers that keep what reaches them, and fail or take their time where a test says so.
#pragma once

#include <vector>

#include "printing/frm_printer.h"

namespace norvale {

class RecordingPrinters final : public Printers {
 public:
  bool hasAny = true;
  int failingCopy = -1;                  // counted from 0 over all prints
  std::function<void()> onPage = [] {};  // while a page is on its way
  std::function<void(PrintSetup&, int&)> choose;

  std::vector<Document> jobs;  // those that came through whole
  int begun = 0;

  [[nodiscard]] bool HasAny() const override { return hasAny; }

  PrintOutcome Print(const Document& document, const PrintSetup& /*setup*/, const GoOn& goOn) override {
    if (begun++ == failingCopy) return {.end = PrintEnd::Failed, .copies = 0, .reason = "The printer Front desk cannot be used: no paper."};
    for (std::size_t page = 0; page < document.pages.size(); ++page) {
      if (!goOn(page)) return {.end = PrintEnd::Stopped, .copies = 0, .reason = {}};
      onPage();
    }
    jobs.push_back(document);
    return {.end = PrintEnd::Done, .copies = 1, .reason = {}};
  }

  bool Choose(PrintSetup& setup, int& copies, QWidget* /*parent*/) override {
    if (!choose) return false;
    choose(setup, copies);
    return true;
  }
};

}  // namespace norvale
