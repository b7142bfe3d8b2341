#include "shell/frm_start.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"

namespace norvale {

namespace {

class StartPicture : public QWidget {
 public:
  using QWidget::QWidget;
  [[nodiscard]] QSize sizeHint() const override { return {fontMetrics().height() * 24, fontMetrics().height() * 11}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    DrawPicture(painter, QStringLiteral("start"), rect());
  }
};

}  // namespace

frmStart::frmStart(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmStart"));
  setWindowTitle(QStringLiteral("Norvale"));
  setProperty(kHelpPage, QStringLiteral("menu"));
  const int space = fontMetrics().height();

  auto* const head = new QWidget(this);
  head->setProperty("band", true);
  head->setAttribute(Qt::WA_StyledBackground);
  auto* const lblTitle = new QLabel(QStringLiteral(" Norvale Material Estimator "), head);
  lblTitle->setObjectName(QStringLiteral("lblTitle"));
  MakeTitle(lblTitle);
  auto* const lblVersion = new QLabel(QStringLiteral("VERSION III"), head);
  lblVersion->setObjectName(QStringLiteral("lblVersion"));
  auto* const headLayout = new QVBoxLayout(head);
  headLayout->setContentsMargins(2 * space, space, 2 * space, space);
  headLayout->addWidget(lblTitle, 0, Qt::AlignHCenter);
  headLayout->addWidget(lblVersion, 0, Qt::AlignHCenter);

  auto* const picture = new StartPicture(this);
  picture->setAccessibleName(tr("A house frame"));
  auto* const cmdOK = new QPushButton(tr("&OK"), this);
  cmdOK->setObjectName(QStringLiteral("cmdOK"));
  cmdOK->setAccessibleName(tr("OK"));
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  auto* const body = new QVBoxLayout;
  body->setContentsMargins(space, space, space, space);
  body->setSpacing(space);
  body->addWidget(picture, 1);
  body->addWidget(cmdOK, 0, Qt::AlignHCenter);

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(head);
  layout->addLayout(body, 1);
  cmdOK->setFocus();
}

}  // namespace norvale
