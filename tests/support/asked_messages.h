// Answers messages as a test says, and fails where another one is shown, or none.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <utility>

#include "base/message.h"

namespace norvale {

class AskedMessages final : public Messages {
 public:
  ~AskedMessages() override { ExpectAllAsked(); }

  void Expect(std::string text, Answer answer = Answer::Ok) { expected_.emplace_back(std::move(text), answer); }

  void ExpectAllAsked() {
    for (const auto& [text, answer] : expected_) ADD_FAILURE() << "never shown: " << text;
    expected_.clear();
  }

  Answer ShowMessage(const std::string& text) override {
    if (expected_.empty() || expected_.front().first != text) {
      ADD_FAILURE() << "shown: " << text << "\nexpected: " << (expected_.empty() ? "no message" : expected_.front().first);
      return ParseMessage(text).escape;
    }
    const Answer answer = expected_.front().second;
    expected_.pop_front();
    return answer;
  }

 private:
  std::deque<std::pair<std::string, Answer>> expected_;
};

}  // namespace norvale
