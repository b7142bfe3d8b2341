#include "desktop/frm_help.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTextFrame>
#include <QTextTable>
#include <QVBoxLayout>

#include "desktop/frm_look.h"

namespace norvale {

namespace {

// Tables as the rest of the program looks: thin lines, room in the cells.
void DressTables(QTextFrame& frame, int space) {
  for (QTextFrame* const child : frame.childFrames()) {
    DressTables(*child, space);
    auto* const table = qobject_cast<QTextTable*>(child);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setCellPadding(space / 3.0);
    format.setCellSpacing(0);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorder(1);
    format.setBorderBrush(ColoursOfLook().edge);
    format.setTopMargin(space / 2.0);
    format.setBottomMargin(space);
    table->setFormat(format);
  }
}

}  // namespace

frmHelp::frmHelp(const QString& page, QWidget* parent) : QDialog(parent), txtHelp_(new QTextBrowser(this)) {
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(QStringLiteral("Norvale Help"));
  txtHelp_->setObjectName(QStringLiteral("txtHelp"));
  txtHelp_->setAccessibleName(tr("Help text"));
  txtHelp_->setOpenLinks(false);
  auto* const cmdOK = new QPushButton(tr("&Close"), this);
  cmdOK->setObjectName(QStringLiteral("cmdOK"));
  cmdOK->setAccessibleName(tr("Close"));
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(txtHelp_);
  layout->addLayout(buttons);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(txtHelp_, &QTextBrowser::anchorClicked, this, &frmHelp::FollowLink);
  const QFontMetrics metrics = fontMetrics();
  resize(metrics.averageCharWidth() * 90, metrics.height() * 32);
  ShowPage(page);
}

QStringList frmHelp::Pages() {
  QStringList pages = QDir(QStringLiteral(":/guide")).entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
  for (QString& page : pages) page.chop(3);
  return pages;
}

void frmHelp::ShowPage(const QString& page) {
  QFile file(QStringLiteral(":/guide/%1.md").arg(page));
  if (!file.open(QIODevice::ReadOnly)) return;
  QString text = QString::fromUtf8(file.readAll());
  // The form itself is on the screen: its picture is for the printed guide.
  static const QRegularExpression picture(QStringLiteral(R"(^!\[.*\]\(.*\)\n?)"), QRegularExpression::MultilineOption);
  text.remove(picture);
  txtHelp_->setMarkdown(text);
  const int space = fontMetrics().height();
  txtHelp_->document()->setDocumentMargin(space);
  DressTables(*txtHelp_->document()->rootFrame(), space);
  txtHelp_->moveCursor(QTextCursor::Start);
}

void frmHelp::FollowLink(const QUrl& link) {
  const QString page = link.fileName();
  if (page.endsWith(QLatin1String(".md"))) ShowPage(page.chopped(3));
}

}  // namespace norvale
