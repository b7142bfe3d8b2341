// One page of the user guide, shown in the program.
#pragma once

#include <QDialog>

class QTextBrowser;

namespace norvale {

class frmHelp : public QDialog {
  Q_OBJECT

 public:
  /// `page` is the name of the page without folder and ending.
  explicit frmHelp(const QString& page, QWidget* parent = nullptr);

  /// The pages that the program carries.
  static QStringList Pages();

 private:
  void ShowPage(const QString& page);
  void FollowLink(const QUrl& link);

  QTextBrowser* txtHelp_;
};

}  // namespace norvale
