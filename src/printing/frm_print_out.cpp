#include "printing/frm_print_out.h"

#include <QDate>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <filesystem>

#include "base/files.h"
#include "base/text.h"
#include "desktop/frm_text.h"
#include "printing/frm_preview.h"

namespace norvale {

namespace {

enum class SaveFormat { Pdf, Text, Csv };

struct FormatInfo {
  SaveFormat format;
  const char* filter;
  const char* suffix;
};
constexpr FormatInfo kFormats[] = {
    {SaveFormat::Pdf, "PDF (*.pdf)", "pdf"},
    {SaveFormat::Text, "Text (*.txt)", "txt"},
    {SaveFormat::Csv, "Table for a spreadsheet (*.csv)", "csv"},
};

const FormatInfo& FormatOf(const QString& filter) {
  for (const FormatInfo& info : kFormats)
    if (filter == QLatin1String(info.filter)) return info;
  return kFormats[0];
}

std::string BytesOf(const Prints& prints, SaveFormat format, const PaperSetup& paper) {
  switch (format) {
    case SaveFormat::Text:
      return DocumentText(prints.document);
    case SaveFormat::Csv:
      return prints.csv;
    case SaveFormat::Pdf:
      break;
  }
  return DocumentPdf(prints.document, paper);
}

// A plan number may hold what a file name may not.
QString FileNameOf(const Document& document) {
  QString name = Shown(ToUtf8(document.title));
  name.replace(QRegularExpression(QStringLiteral(R"([\\/:*?"<>|\x00-\x1f])")), QStringLiteral("-"));
  name = name.simplified();
  return name.isEmpty() ? QStringLiteral("Norvale") : name;
}

}  // namespace

std::string TodayOnPaper() { return Typed(QDate::currentDate().toString(QStringLiteral("MM-dd-yyyy"))); }

bool PrintOut(Program& program, const Prints& prints, int copies, PrintSetup& setup, Printers& printers, QWidget* parent) {
  if (!printers.HasAny()) {
    const Answer answer = program.messages.ShowMessage(
        "2 No printer is installed on this computer. Look at the pages on the screen instead? They can be saved there as a PDF.|Print");
    if (answer == Answer::Yes) ShowPreview(program, prints, setup, printers, parent);
    return false;
  }
  const PrintOutcome outcome = PrintCopies(printers, prints.document, copies, setup, parent);
  if (const std::string notice = NoticeOf(outcome, copies); !notice.empty()) program.messages.ShowMessage(notice);
  return outcome.end == PrintEnd::Done;
}

bool ShowPreview(Program& program, const Prints& prints, PrintSetup& setup, Printers& printers, QWidget* parent) {
  frmPreview preview(prints.document, setup.paper,
                     {.print =
                          [&](QWidget*) {
                            if (printers.HasAny()) return true;
                            program.messages.ShowMessage(Notice(kNoPrinter));
                            return false;
                          },
                      .saveAs = [&](QWidget* form) { SavePrints(program, prints, setup.paper, form); },
                      .setPaper =
                          [&](const PaperSetup& paper) {
                            setup.paper = paper;
                            SavePrintSetup(setup);
                          }},
                     parent);
  return preview.exec() == QDialog::Accepted;
}

void SavePrints(Program& program, const Prints& prints, const PaperSetup& paper, QWidget* parent) {
  QFileDialog dialog(parent, QObject::tr("Save As"));
  dialog.setObjectName(QStringLiteral("frmSaveAs"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);  // it would ask for the name before its ending
  QStringList filters;
  for (const FormatInfo& info : kFormats)
    if (info.format != SaveFormat::Csv || !prints.csv.empty()) filters.append(QString::fromLatin1(info.filter));
  dialog.setNameFilters(filters);
  const auto chooseSuffix = [&dialog](const QString& filter) {
    const QString suffix = QString::fromLatin1(FormatOf(filter).suffix);
    dialog.setDefaultSuffix(suffix);
    const QStringList typed = dialog.selectedFiles();
    if (!typed.isEmpty() && !QFileInfo(typed.front()).isDir())
      dialog.selectFile(QFileInfo(typed.front()).completeBaseName() + QLatin1Char('.') + suffix);
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, chooseSuffix);
  dialog.setDefaultSuffix(QString::fromLatin1(kFormats[0].suffix));
  dialog.setDirectory(LoadSaveFolder());
  dialog.selectFile(FileNameOf(prints.document) + QStringLiteral(".pdf"));

  while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
    const FormatInfo& format = FormatOf(dialog.selectedNameFilter());
    QString file = dialog.selectedFiles().front();
    // The ending belongs to the format: no file of another kind is ever written over by mistake.
    if (const QString ending = QLatin1Char('.') + QString::fromLatin1(format.suffix); !file.endsWith(ending, Qt::CaseInsensitive))
      file += ending;
    const std::string question = "2 " + WithoutBars(Typed(QFileInfo(file).fileName())) + " is there already. Replace it?|Save As";
    if (QFileInfo::exists(file) && program.messages.ShowMessage(question) != Answer::Yes) continue;
    const bool isSaved = Try(program.messages, [&] {
      ReplaceFile(program.folder.Files(), std::filesystem::path(file.toStdU16String()), BytesOf(prints, format.format, paper));
    });
    if (!isSaved) continue;
    SaveSaveFolder(QFileInfo(file).absolutePath());
    return;
  }
}

}  // namespace norvale
