// PDF files from a program that shows no forms. Nothing of Qt can be seen here.
#pragma once

#include <string>

#include "printing/document.h"

namespace norvale {

/// The document as a PDF on letter paper. Needs no screen.
std::string PdfWithoutScreen(const Document& document);

}  // namespace norvale
