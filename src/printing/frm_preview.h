// The pages of a document on the screen, as they come out on paper.
#pragma once

#include <QAbstractScrollArea>
#include <QDialog>
#include <functional>

#include "printing/frm_page_painter.h"

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;

namespace norvale {

enum class Zoom { FitWidth, FitPage, Free };

/// The sheets one below the other. Paints those in sight.
class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit PageView(QWidget* parent = nullptr);

  void SetDocument(const Document& document, const PaperSetup& setup);
  void SetZoom(Zoom zoom, qreal factor = 1);

  /// Pixels of the screen to a pixel of 96 to the inch.
  [[nodiscard]] qreal Factor() const { return factor_; }
  [[nodiscard]] Zoom ZoomMode() const { return zoom_; }

  [[nodiscard]] int PageCount() const { return static_cast<int>(document_.pages.size()); }

  /// The page in the middle of the window, from 0.
  [[nodiscard]] int CurrentPage() const;
  void GoToPage(int page);

  /// Where the sheet of a page stands in the viewport now, in pixels; it may be out of sight.
  [[nodiscard]] QRectF SheetRect(int page) const;

 signals:
  void PageChanged();
  void ZoomChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  [[nodiscard]] QSizeF SheetSize() const;
  [[nodiscard]] qreal TopOf(int page) const;
  void LayOut();
  void ZoomBy(qreal step);
  void TellPage();

  Document document_;
  Cells cells_;
  Zoom zoom_ = Zoom::FitWidth;
  qreal factor_ = 1;
  int told_ = -1;
};

class frmPreview : public QDialog {
  Q_OBJECT

 public:
  /// What the buttons do. `print` says whether the preview is done with.
  struct Actions {
    std::function<bool(QWidget* preview)> print;
    std::function<void(QWidget* preview)> saveAs;
    std::function<void(const PaperSetup&)> setPaper;
  };

  frmPreview(const Document& document, const PaperSetup& setup, Actions actions, QWidget* parent = nullptr);

 private:
  QLayout* MakeTop();
  QLayout* MakeFoot(bool hasMarks);
  void ShowPage();
  void ShowZoom();
  void TakeZoom();
  void TakePaper();

  Document document_;
  PaperSetup setup_;
  Actions actions_;
  PageView* pctPages_;
  QPushButton* cmdFirst_ = nullptr;
  QPushButton* cmdPrev_ = nullptr;
  QPushButton* cmdNext_ = nullptr;
  QPushButton* cmdLast_ = nullptr;
  QLabel* lblPage_ = nullptr;
  QComboBox* cboZoom_ = nullptr;
  QComboBox* cboPaper_ = nullptr;
  QDoubleSpinBox* txtMargin_ = nullptr;
};

}  // namespace norvale
