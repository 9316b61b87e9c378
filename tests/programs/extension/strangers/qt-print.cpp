// SPDX-License-Identifier: Apache-2.0
// A Qt program that prints and knows nothing of the panel: qt-print [--times N | --at-once N |
// --destroy]. Its dialogs are called "Stranger 1" and so on. --times: one after the other;
// --at-once: at the same time; --destroy: the program destroys the dialog while somebody answers a
// message of it.
#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

constexpr int kPages = 20;

struct Job {
  explicit Job(int number) : dialog(std::make_unique<QPrintDialog>(&printer)) {
    dialog->setWindowTitle(QString("Stranger %1").arg(number));
  }
  void print() {
    QPainter painter(&printer);
    for (int page = 1; page <= kPages; ++page) {
      painter.drawText(200, 200, QString("Page %1").arg(page));
      if (page < kPages) printer.newPage();
    }
  }

  QPrinter printer;
  std::unique_ptr<QPrintDialog> dialog;
};

int printInTurn(int times) {
  for (int number = 1; number <= times; ++number) {
    Job job(number);
    if (job.dialog->exec() == QDialog::Accepted) job.print();
  }
  return 0;
}

int printAtOnce(int count) {
  std::vector<std::unique_ptr<Job>> jobs;
  for (int number = 1; number <= count; ++number) {
    Job& job = *jobs.emplace_back(std::make_unique<Job>(number));
    QObject::connect(&*job.dialog, &QDialog::accepted, [&job] { job.print(); });
    job.dialog->show();
  }
  return QApplication::exec();
}

int destroyInAlert() {
  Job job(1);
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr)
      job.dialog.reset();
    if (job.dialog == nullptr) QApplication::exit();
  });
  timer.start(500);
  job.dialog->show();
  QApplication::setQuitOnLastWindowClosed(false);
  return QApplication::exec();
}

}  // namespace

int main(int count, char* arguments[]) {
  const QApplication application(count, arguments);
  const QStringList words = QApplication::arguments();
  const int number = words.size() > 2 ? words.at(2).toInt() : 1;
  if (words.contains("--at-once")) return printAtOnce(number);
  if (words.contains("--destroy")) return destroyInAlert();
  return printInTurn(number);
}
