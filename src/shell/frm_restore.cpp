#include "shell/frm_restore.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "desktop/frm_keys.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

enum Column { kDate, kTime, kReason, kCustomers, kPlans, kColumns };

QPushButton* MakeButton(const QString& caption, const char* name, QWidget* form) {
  auto* const button = new QPushButton(caption, form);
  button->setObjectName(QString::fromLatin1(name));
  button->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
  button->setAutoDefault(false);
  return button;
}

}  // namespace

frmRestore::frmRestore(Program& program, QWidget* parent) : QDialog(parent), program_(program) {
  setObjectName(QStringLiteral("frmRestore"));
  setWindowTitle(tr("Backups"));
  setProperty(kHelpPage, QStringLiteral("backup"));
  const int space = fontMetrics().height();

  auto* const about = new QLabel(tr("The last %1 copies of the working folder. One is made when the program starts and after each day's "
                                    "first change, where something is new.")
                                     .arg(kBackupsKept),
                                 this);
  about->setObjectName(QStringLiteral("lblAbout"));
  about->setWordWrap(true);
  lstBackups_ = new QTreeWidget(this);
  lstBackups_->setObjectName(QStringLiteral("lstBackups"));
  lstBackups_->setAccessibleName(tr("Backups, the newest first"));
  lstBackups_->setHeaderLabels({tr("Date"), tr("Time"), tr("Made"), tr("Customers"), tr("Plans")});
  lstBackups_->setRootIsDecorated(false);
  lstBackups_->setUniformRowHeights(true);
  lstBackups_->setAllColumnsShowFocus(true);
  lstBackups_->header()->setStretchLastSection(false);
  lstBackups_->header()->setSectionsMovable(false);
  lstBackups_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  lstBackups_->header()->setSectionResizeMode(kReason, QHeaderView::Stretch);
  lstBackups_->setMinimumSize(fontMetrics().averageCharWidth() * 84, space * 16);
  for (const Column number : {kCustomers, kPlans}) lstBackups_->headerItem()->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
  lblNone_ = new QLabel(tr("There is no backup yet."), this);
  lblNone_->setObjectName(QStringLiteral("lblNone"));
  lblNone_->setProperty("role", QStringLiteral("quiet"));

  cmdRestore_ = MakeButton(tr("Bring bac&k"), "cmdRestore", this);
  auto* const cmdBackUp = MakeButton(tr("&Back up now"), "cmdBackUp", this);
  auto* const cmdClose = MakeButton(tr("&Close"), "cmdClose", this);
  connect(cmdRestore_, &QPushButton::clicked, this, &frmRestore::Restore);
  connect(cmdBackUp, &QPushButton::clicked, this, &frmRestore::BackUp);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
  auto* const row = new QHBoxLayout;
  row->setSpacing(space / 2);
  row->addWidget(cmdRestore_);
  row->addWidget(cmdBackUp);
  row->addStretch();
  row->addWidget(cmdClose);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space * 3 / 2, space * 3 / 2, space * 3 / 2, space);
  layout->setSpacing(space);
  layout->addWidget(about);
  layout->addWidget(lstBackups_, 1);
  layout->addWidget(lblNone_);
  layout->addLayout(row);
  ReadBackups(program_, form_);
  ShowForm();
}

void frmRestore::ShowForm() {
  lstBackups_->clear();
  for (const Backup& backup : form_.backups) {
    auto* const item = new QTreeWidgetItem(lstBackups_);
    item->setSizeHint(kReason, QSize(0, fontMetrics().height() * 3 / 2));
    item->setText(kDate, Shown(DateOf(backup)));
    item->setText(kTime, Shown(TimeOf(backup)));
    item->setText(kReason, Shown(ReasonText(backup.reason)));
    item->setText(kCustomers, QString::number(backup.customers));
    item->setText(kPlans, QString::number(backup.plans));
    for (const Column number : {kCustomers, kPlans}) item->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
  }
  const bool isEmpty = form_.backups.empty();
  if (!isEmpty) lstBackups_->setCurrentItem(lstBackups_->topLevelItem(0));
  lstBackups_->setFocus();
  lblNone_->setVisible(isEmpty);
  cmdRestore_->setEnabled(!isEmpty);
}

void frmRestore::BackUp() {
  Try(program_.messages, [this] { BackUpNow(program_, form_, LocalNow()); });
  ShowForm();
}

void frmRestore::Restore() {
  const int row = lstBackups_->indexOfTopLevelItem(lstBackups_->currentItem());
  if (row < 0) return;
  bool isBack = false;
  const bool went = Try(program_.messages, [&] { isBack = BringBack(program_, form_, static_cast<std::size_t>(row), LocalNow()); });
  if (!went) Try(program_.messages, [this] { ReadBackups(program_, form_); });  // one may have been added before it failed
  if (isBack || !went) ShowForm();
}

}  // namespace norvale
