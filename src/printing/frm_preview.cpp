#include "printing/frm_preview.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/text.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

constexpr int kGap = 14;  // pixels around a sheet
constexpr qreal kPixelsPerPoint = 96.0 / 72;
constexpr qreal kLeastZoom = 0.25;
constexpr qreal kLargestZoom = 4;
constexpr qreal kZoomStep = 1.25;
constexpr std::array<int, 7> kZooms = {50, 75, 100, 125, 150, 200, 300};
constexpr std::array<std::pair<QPageSize::PageSizeId, const char*>, 3> kPapers = {
    {{QPageSize::Letter, "Letter"}, {QPageSize::Legal, "Legal"}, {QPageSize::A4, "A4"}}};

// What the zoom list holds beside percentages.
constexpr int kFitWidth = 0;
constexpr int kFitPage = -1;

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Pages"));
  setFrameShape(QFrame::NoFrame);
  verticalScrollBar()->setFocusPolicy(Qt::NoFocus);
}

void PageView::SetDocument(const Document& document, const PaperSetup& setup) {
  const int page = told_;
  document_ = document;
  cells_ = CellsOf(document_, setup);
  told_ = -1;
  LayOut();
  if (page >= 0) GoToPage(page);
  TellPage();
}

void PageView::SetZoom(Zoom zoom, qreal factor) {
  const int page = CurrentPage();
  const qreal within = (verticalScrollBar()->value() - TopOf(page)) / factor_;
  zoom_ = zoom;
  factor_ = std::clamp(factor, kLeastZoom, kLargestZoom);
  LayOut();
  verticalScrollBar()->setValue(zoom_ == Zoom::FitPage ? static_cast<int>(TopOf(page)) - kGap
                                                       : static_cast<int>(TopOf(page) + within * factor_));
  emit ZoomChanged();
}

QSizeF PageView::SheetSize() const { return cells_.sheet * kPixelsPerPoint * factor_; }

qreal PageView::TopOf(int page) const { return kGap + page * (SheetSize().height() + kGap); }

int PageView::CurrentPage() const {
  const qreal middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
  const int page = static_cast<int>((middle - kGap / 2.0) / (SheetSize().height() + kGap));
  return std::clamp(page, 0, std::max(0, PageCount() - 1));
}

void PageView::GoToPage(int page) {
  verticalScrollBar()->setValue(static_cast<int>(TopOf(std::clamp(page, 0, std::max(0, PageCount() - 1)))) - kGap);
}

QRectF PageView::SheetRect(int page) const {
  const QSizeF sheet = SheetSize();
  const qreal left = std::max<qreal>(kGap, (viewport()->width() - sheet.width()) / 2) - horizontalScrollBar()->value();
  return {QPointF(std::floor(left), std::floor(TopOf(page) - verticalScrollBar()->value())), sheet};
}

void PageView::LayOut() {
  const QSizeF room = QSizeF(viewport()->size()) - QSizeF(2 * kGap, 2 * kGap);
  const QSizeF whole = cells_.sheet * kPixelsPerPoint;
  if (whole.isEmpty()) return;
  if (zoom_ == Zoom::FitWidth) factor_ = std::clamp(room.width() / whole.width(), kLeastZoom, kLargestZoom);
  if (zoom_ == Zoom::FitPage)
    factor_ = std::clamp(std::min(room.width() / whole.width(), room.height() / whole.height()), kLeastZoom, kLargestZoom);
  const QSizeF sheet = SheetSize();
  QScrollBar* const down = verticalScrollBar();
  down->setRange(0, std::max(0, static_cast<int>(TopOf(PageCount())) - viewport()->height()));
  down->setPageStep(viewport()->height());
  down->setSingleStep(std::max(1, static_cast<int>(cells_.height * kPixelsPerPoint * factor_ * 3)));
  QScrollBar* const across = horizontalScrollBar();
  across->setRange(0, std::max(0, static_cast<int>(sheet.width()) + 2 * kGap - viewport()->width()));
  across->setPageStep(viewport()->width());
  across->setSingleStep(down->singleStep());
  viewport()->update();
}

void PageView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), palette().color(QPalette::Dark));
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  for (int page = 0; page < PageCount(); ++page) {
    const QRectF place = SheetRect(page);
    if (place.bottom() < 0) continue;
    if (place.top() > viewport()->height()) break;
    painter.fillRect(place, Qt::white);
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    painter.scale(kPixelsPerPoint * factor_, kPixelsPerPoint * factor_);
    PaintPage(painter, document_, static_cast<std::size_t>(page), cells_, Marks::Shown);
    painter.restore();
    painter.setPen(QPen(hasFocus() ? ColoursOfLook().focus : ColoursOfLook().edge, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(-0.5, -0.5, 0.5, 0.5));
  }
}

void PageView::resizeEvent(QResizeEvent* /*event*/) {
  const int page = std::max(0, told_);
  const qreal within = (verticalScrollBar()->value() - TopOf(page)) / factor_;
  LayOut();
  verticalScrollBar()->setValue(static_cast<int>(TopOf(page) + within * factor_));
  TellPage();
  emit ZoomChanged();
}

void PageView::scrollContentsBy(int /*dx*/, int /*dy*/) {
  viewport()->update();
  TellPage();
}

void PageView::keyPressEvent(QKeyEvent* event) {
  const bool isControl = event->modifiers().testFlag(Qt::ControlModifier);
  switch (event->key()) {
    case Qt::Key_PageDown:
    case Qt::Key_PageUp: {
      const int step = event->key() == Qt::Key_PageDown ? 1 : -1;
      if (isControl || zoom_ == Zoom::FitPage)
        GoToPage(CurrentPage() + step);
      else
        verticalScrollBar()->triggerAction(step > 0 ? QScrollBar::SliderPageStepAdd : QScrollBar::SliderPageStepSub);
      return;
    }
    case Qt::Key_Space:
      verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
      return;
    case Qt::Key_Home:
      GoToPage(0);
      return;
    case Qt::Key_End:
      GoToPage(PageCount() - 1);
      return;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      ZoomBy(kZoomStep);
      return;
    case Qt::Key_Minus:
      ZoomBy(1 / kZoomStep);
      return;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  if (event->angleDelta().y() != 0) ZoomBy(event->angleDelta().y() > 0 ? kZoomStep : 1 / kZoomStep);
  event->accept();
}

void PageView::ZoomBy(qreal step) { SetZoom(Zoom::Free, factor_ * step); }

void PageView::TellPage() {
  const int page = CurrentPage();
  if (page == told_ || PageCount() == 0) return;
  told_ = page;
  QString text;
  for (const std::string& line : document_.pages[static_cast<std::size_t>(page)]) text += Shown(ToUtf8(line)) + QLatin1Char('\n');
  setAccessibleDescription(text);
  emit PageChanged();
}

frmPreview::frmPreview(const Document& document, const PaperSetup& setup, Actions actions, QWidget* parent)
    : QDialog(parent), document_(document), setup_(setup), actions_(std::move(actions)), pctPages_(new PageView(this)) {
  setObjectName(QStringLiteral("frmPreview"));
  setWindowTitle(tr("Preview: %1").arg(Shown(ToUtf8(document.title)).trimmed()));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setProperty(kHelpPage, QStringLiteral("printing"));
  pctPages_->setObjectName(QStringLiteral("pctPages"));

  const int space = fontMetrics().height();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  auto* const top = MakeTop();
  top->setContentsMargins(space, space / 2, space, space / 2);
  layout->addLayout(top);
  layout->addWidget(pctPages_, 1);
  auto* const foot = MakeFoot(!document_.marks.empty());
  foot->setContentsMargins(space, space / 2, space, space / 2);
  layout->addLayout(foot);

  connect(pctPages_, &PageView::PageChanged, this, &frmPreview::ShowPage);
  connect(pctPages_, &PageView::ZoomChanged, this, &frmPreview::ShowZoom);
  pctPages_->SetDocument(document_, setup_);
  ShowPage();
  ShowZoom();
  const QSize room = screen()->availableSize();
  resize(QSize(space * 56, space * 62).boundedTo(QSize(room.width() * 95 / 100, room.height() * 9 / 10)));
  pctPages_->setFocus();
}

QLayout* frmPreview::MakeTop() {
  const auto button = [this](QPushButton*& made, const char* name, const QString& caption, const QString& spoken) {
    made = new QPushButton(caption, this);
    made->setObjectName(QString::fromLatin1(name));
    made->setAccessibleName(spoken);
    made->setAutoDefault(false);
  };
  button(cmdFirst_, "cmdFirst", tr("F&irst"), tr("First page"));
  button(cmdPrev_, "cmdPrev", tr("Pre&v."), tr("Previous page"));
  button(cmdNext_, "cmdNext", tr("&Next"), tr("Next page"));
  button(cmdLast_, "cmdLast", tr("&Last"), tr("Last page"));
  connect(cmdFirst_, &QPushButton::clicked, this, [this] { pctPages_->GoToPage(0); });
  connect(cmdPrev_, &QPushButton::clicked, this, [this] { pctPages_->GoToPage(pctPages_->CurrentPage() - 1); });
  connect(cmdNext_, &QPushButton::clicked, this, [this] { pctPages_->GoToPage(pctPages_->CurrentPage() + 1); });
  connect(cmdLast_, &QPushButton::clicked, this, [this] { pctPages_->GoToPage(pctPages_->PageCount() - 1); });
  lblPage_ = new QLabel(this);
  lblPage_->setObjectName(QStringLiteral("lblPage"));
  lblPage_->setAlignment(Qt::AlignCenter);
  lblPage_->setMinimumWidth(fontMetrics().horizontalAdvance(tr("Page %1 of %2").arg(888).arg(888)));
  cboZoom_ = new QComboBox(this);
  cboZoom_->setObjectName(QStringLiteral("cboZoom"));
  cboZoom_->setAccessibleName(tr("Zoom"));
  cboZoom_->addItem(tr("Fit width"), kFitWidth);
  cboZoom_->addItem(tr("Fit page"), kFitPage);
  for (const int percent : kZooms) cboZoom_->addItem(tr("%1 %").arg(percent), percent);
  connect(cboZoom_, &QComboBox::activated, this, &frmPreview::TakeZoom);
  auto* const zoom = new QLabel(tr("&Zoom:"), this);
  zoom->setBuddy(cboZoom_);
  for (const auto& [key, mode] : {std::pair(Qt::CTRL | Qt::Key_1, Zoom::FitWidth), std::pair(Qt::CTRL | Qt::Key_2, Zoom::FitPage)}) {
    auto* const shortcut = new QShortcut(QKeySequence(key), this);
    connect(shortcut, &QShortcut::activated, pctPages_, [this, mode = mode] { pctPages_->SetZoom(mode, pctPages_->Factor()); });
  }

  auto* const row = new QHBoxLayout;
  row->setSpacing(fontMetrics().height() / 2);
  row->addWidget(cmdFirst_);
  row->addWidget(cmdPrev_);
  row->addWidget(lblPage_);
  row->addWidget(cmdNext_);
  row->addWidget(cmdLast_);
  row->addStretch();
  row->addWidget(zoom);
  row->addWidget(cboZoom_);
  return row;
}

QLayout* frmPreview::MakeFoot(bool hasMarks) {
  cboPaper_ = new QComboBox(this);
  cboPaper_->setObjectName(QStringLiteral("cboPaper"));
  cboPaper_->setAccessibleName(tr("Paper"));
  for (const auto& [size, name] : kPapers) cboPaper_->addItem(QString::fromLatin1(name), size);
  if (cboPaper_->findData(setup_.size) < 0) cboPaper_->addItem(QPageSize::name(setup_.size), setup_.size);
  cboPaper_->setCurrentIndex(cboPaper_->findData(setup_.size));
  connect(cboPaper_, &QComboBox::activated, this, &frmPreview::TakePaper);
  auto* const paper = new QLabel(tr("P&aper:"), this);
  paper->setBuddy(cboPaper_);
  txtMargin_ = new QDoubleSpinBox(this);
  txtMargin_->setObjectName(QStringLiteral("txtMargin"));
  txtMargin_->setAccessibleName(tr("Margins in inches"));
  txtMargin_->setLocale(QLocale::c());
  txtMargin_->setRange(kLeastMargin, kLargestMargin);
  txtMargin_->setSingleStep(0.05);
  txtMargin_->setSuffix(tr(" in."));
  txtMargin_->setKeyboardTracking(false);
  txtMargin_->setValue(setup_.margin);
  connect(txtMargin_, &QDoubleSpinBox::valueChanged, this, &frmPreview::TakePaper);
  auto* const margin = new QLabel(tr("&Margins:"), this);
  margin->setBuddy(txtMargin_);

  const auto button = [this](const char* name, const QString& caption, const QString& spoken) {
    auto* const made = new QPushButton(caption, this);
    made->setObjectName(QString::fromLatin1(name));
    made->setAccessibleName(spoken);
    made->setAutoDefault(false);
    return made;
  };
  auto* const cmdPrint = button("cmdPrint", tr("&Print"), tr("Print"));
  cmdPrint->setDefault(true);
  connect(cmdPrint, &QPushButton::clicked, this, [this] {
    if (actions_.print(this)) accept();
  });
  auto* const cmdSaveAs = button("cmdSaveAs", tr("&Save As..."), tr("Save as PDF, text or CSV"));
  connect(cmdSaveAs, &QPushButton::clicked, this, [this] { actions_.saveAs(this); });
  auto* const cmdClose = button("cmdClose", tr("&Close"), tr("Close"));
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);

  auto* const row = new QHBoxLayout;
  row->setSpacing(fontMetrics().height() / 2);
  row->addWidget(paper);
  row->addWidget(cboPaper_);
  row->addSpacing(fontMetrics().height() / 2);
  row->addWidget(margin);
  row->addWidget(txtMargin_);
  row->addStretch();
  row->addWidget(cmdPrint);
  row->addWidget(cmdSaveAs);
  row->addWidget(cmdClose);
  auto* const foot = new QVBoxLayout;
  foot->setSpacing(fontMetrics().height() / 2);
  if (hasMarks) {
    auto* const lblMarks = new QLabel(tr("The marked lines have no price. The paper shows no mark."), this);
    lblMarks->setObjectName(QStringLiteral("lblMarks"));
    lblMarks->setProperty("role", QStringLiteral("quiet"));
    foot->addWidget(lblMarks);
  }
  foot->addLayout(row);
  return foot;
}

void frmPreview::ShowPage() {
  const int page = pctPages_->CurrentPage();
  const int count = pctPages_->PageCount();
  lblPage_->setText(tr("Page %1 of %2").arg(page + 1).arg(count));
  // The focus first: a button that is shut while it has the focus would hand it on to anything.
  const bool isFirst = page == 0;
  const bool isLast = page + 1 >= count;
  if ((isFirst && (cmdFirst_->hasFocus() || cmdPrev_->hasFocus())) || (isLast && (cmdNext_->hasFocus() || cmdLast_->hasFocus())))
    pctPages_->setFocus();
  cmdFirst_->setEnabled(!isFirst);
  cmdPrev_->setEnabled(!isFirst);
  cmdNext_->setEnabled(!isLast);
  cmdLast_->setEnabled(!isLast);
}

void frmPreview::ShowZoom() {
  if (pctPages_->ZoomMode() == Zoom::FitWidth) return cboZoom_->setCurrentIndex(cboZoom_->findData(kFitWidth));
  if (pctPages_->ZoomMode() == Zoom::FitPage) return cboZoom_->setCurrentIndex(cboZoom_->findData(kFitPage));
  cboZoom_->setCurrentIndex(cboZoom_->findData(static_cast<int>(std::lround(pctPages_->Factor() * 100))));
}

void frmPreview::TakeZoom() {
  const int chosen = cboZoom_->currentData().toInt();
  if (chosen == kFitWidth)
    pctPages_->SetZoom(Zoom::FitWidth);
  else if (chosen == kFitPage)
    pctPages_->SetZoom(Zoom::FitPage);
  else
    pctPages_->SetZoom(Zoom::Free, chosen / 100.0);
}

void frmPreview::TakePaper() {
  setup_.size = static_cast<QPageSize::PageSizeId>(cboPaper_->currentData().toInt());
  setup_.margin = txtMargin_->value();
  pctPages_->SetDocument(document_, setup_);
  actions_.setPaper(setup_);
}

}  // namespace norvale
