// What the desktop program hands to each of its forms.
#pragma once

#include "base/message.h"
#include "data/data_folder.h"
#include "data/session.h"

namespace norvale {

struct Program {
  DataFolder& folder;
  Session& session;
  Messages& messages;
};

/// Runs what an event has asked for. A file that cannot be used ends it and is told to the operator; returns whether all
/// went well.
template <typename Step>
bool Try(Messages& messages, Step step) {
  try {
    step();
    return true;
  } catch (const FileError& error) {
    messages.ShowMessage(FileErrorNotice(error));
    return false;
  }
}

}  // namespace norvale
