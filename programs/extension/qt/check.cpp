// SPDX-License-Identifier: Apache-2.0
// Loads the proxy as Qt would and looks whether it leads to Qt's own print plug-in:
// publishing-qt-check PROXY. Exits with 0 if so, else with 1 and a line that says why not.
#include <QCoreApplication>
#include <QPluginLoader>
#include <cstdio>

int main(int count, char* arguments[]) {
  const QCoreApplication application(count, arguments);
  if (count != 2) return 2;
  QPluginLoader proxy(QString::fromLocal8Bit(arguments[1]));
  const QObject* plugin = proxy.instance();
  if (plugin != nullptr && plugin->inherits("QPlatformPrinterSupportPlugin")) return 0;
  std::fprintf(stderr, "%s\n",
               proxy.isLoaded() ? "there is no print plug-in of Qt"
                                : proxy.errorString().toLocal8Bit().constData());
  return 1;
}
