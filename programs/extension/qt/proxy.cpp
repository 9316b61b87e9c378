// SPDX-License-Identifier: Apache-2.0
// The print plug-in that Qt finds before its own, which it is not: it loads Qt's own plug-in, gives
// that one to Qt, and from then on gives each print dialog the panel just before it is first shown.
// Nothing of it is loaded before a program looks for printers, and the panel, a library of its own,
// only for the first dialog.
//
// A plug-in that cannot be loaded leaves a program without printers. So this one needs QtCore and
// the C library alone, and the few functions of QtCore that it calls are in every Qt of its major
// version.
#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QLibrary>
#include <QPluginLoader>
#include <QStringList>
#include <QThread>
#include <QtPlugin>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>

#include "programs/extension/qt/metadata.h"
#include "shells/ExtensionNames.h"

namespace {

using Attach = void (*)(QObject* dialog);

// The folder of the proxies for both Qts; the panel's libraries are in the folder above.
QString proxyFolder() {
  Dl_info here;
  if (dladdr(reinterpret_cast<void*>(&proxyFolder), &here) == 0) return QString();
  return QFileInfo(QString::fromLocal8Bit(here.dli_fname)).absolutePath();
}

Attach openPanel() {
  QLibrary panel(proxyFolder() + QLatin1String("/../" PUBLISHING_QT_PANEL));
  panel.setLoadHints(QLibrary::PreventUnloadHint);
  auto* attach = reinterpret_cast<Attach>(panel.resolve(PUBLISHING_QT_PANEL_ENTRY));
  if (attach == nullptr) {
    qWarning("Print dialogs stay without the panel; install it again: %s",
             panel.errorString().toLocal8Bit().constData());
  }
  return attach;
}

void attachPanel(QObject* dialog) {
  static bool isOpened = false;
  static Attach attach = nullptr;
  if (!isOpened) attach = openPanel();
  isOpened = true;
  if (attach != nullptr) attach(dialog);
}

// Sees all events of the program; a dialog is polished once, before it is first shown.
class Watch final : public QObject {
 public:
  // Begins with the next event of the program's own thread, which may be another one than this.
  void begin() {
    moveToThread(QCoreApplication::instance()->thread());
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  }

  bool event(QEvent* event) override {
    if (event->type() == QEvent::User) QCoreApplication::instance()->installEventFilter(this);
    return QObject::event(event);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Polish && object->inherits("QPrintDialog")) attachPanel(object);
    return false;
  }
};

bool isSwitchedOff() {
  const char* wish = std::getenv(PUBLISHING_SWITCH);
  return wish != nullptr && (std::strcmp(wish, "0") == 0 || std::strcmp(wish, "off") == 0);
}

// Qt's own plug-in, kept for good; null when there is none.
QObject* ownPlugin() {
  const QStringList folders = QCoreApplication::libraryPaths();
  for (const QString& folder : folders) {
    const QString file = folder + QLatin1String("/printsupport/libcupsprintersupport.so");
    if (!QFileInfo::exists(file)) continue;
    QPluginLoader plugin(file);
    plugin.setLoadHints(QLibrary::PreventUnloadHint);
    if (QObject* root = plugin.instance()) return root;
  }
  return nullptr;
}

void watchDialogs() {
  static bool isWatching = false;
  if (isWatching || isSwitchedOff() || QCoreApplication::instance() == nullptr) return;
  isWatching = true;
  auto* watch = new Watch;  // for good
  if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
    QCoreApplication::instance()->installEventFilter(watch);
  } else {
    watch->begin();
  }
}

}  // namespace

extern "C" Q_DECL_EXPORT QObject* qt_plugin_instance() {
  QObject* plugin = ownPlugin();
  if (plugin != nullptr) watchDialogs();
  return plugin;
}
