#include "entry/frm_estsave.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "desktop/frm_keys.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

struct SaveOption {
  SaveChoice choice;
  const char* caption;
  const char* note;
};
constexpr std::array<SaveOption, 4> kOptions = {{
    {SaveChoice::Save, "&Save", "Keep the plan as it stands here."},
    {SaveChoice::AsNew, "Save &As New", "Keep the plan on file as it was, and this one as another."},
    {SaveChoice::NoSave, "&No Save", "Leave without what was changed."},
    {SaveChoice::Cancel, "&Cancel", "Go back to the screens."},
}};
constexpr std::size_t kAsNew = 1;

}  // namespace

frmEstsave::frmEstsave(PlanMode mode, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmEstsave"));
  setWindowTitle(tr("Exit Norvale Worksheet"));
  setProperty(kHelpPage, QStringLiteral("plans"));
  auto* const layout = new QGridLayout(this);
  const int space = fontMetrics().height();
  layout->setContentsMargins(space * 3 / 2, space * 3 / 2, space * 3 / 2, space * 3 / 2);
  layout->setHorizontalSpacing(space);
  layout->setVerticalSpacing(space / 2);
  auto* const lblPrompt = new QLabel(tr("Choose the save options for this estimate."), this);
  lblPrompt->setObjectName(QStringLiteral("lblPrompt"));
  layout->addWidget(lblPrompt, 0, 0, 1, 2);
  layout->setRowMinimumHeight(1, space / 4);
  for (std::size_t i = 0; i < kOptions.size(); ++i) {
    const SaveOption& option = kOptions[i];
    const QString caption = QString::fromLatin1(option.caption);
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(InArray("pctSaveOpt", i));
    button->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    button->setAccessibleDescription(QString::fromLatin1(option.note));
    button->setAutoDefault(false);
    auto* const note = new QLabel(QString::fromLatin1(option.note), this);
    note->setObjectName(InArray("lblSaveNote", i));
    note->setProperty("role", QStringLiteral("quiet"));
    layout->addWidget(button, static_cast<int>(i) + 2, 0);
    layout->addWidget(note, static_cast<int>(i) + 2, 1);
    connect(button, &QPushButton::clicked, this, [this, choice = option.choice] {
      choice_ = choice;
      accept();
    });
    pctSaveOpt_[i] = button;
    // A new plan has nothing on file to part from.
    const bool isOffered = i != kAsNew || IsOpened(mode);
    button->setVisible(isOffered);
    note->setVisible(isOffered);
  }
  layout->setSizeConstraint(QLayout::SetFixedSize);
  pctSaveOpt_.front()->setFocus();
}

void frmEstsave::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up) return static_cast<void>(focusNextPrevChild(false));
  if (event->key() == Qt::Key_Down) return static_cast<void>(focusNextPrevChild(true));
  // The underlined letter presses its button, with ALT or without.
  const QString typed = event->text().toUpper();
  for (QPushButton* const button : pctSaveOpt_) {
    const QString caption = button->text();
    if (typed.isEmpty() || button->isHidden() || caption.mid(caption.indexOf(QLatin1Char('&')) + 1, 1).toUpper() != typed) continue;
    return button->click();
  }
  QDialog::keyPressEvent(event);
}

}  // namespace norvale
