#include "shell/qt/open_url.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

#include "platform/qt/text_conversion.h"

namespace parlorwire {

void OpenUrl(const Text& url) {
  QString address = ToQString(url);
  if (address.startsWith(QLatin1String("www."), Qt::CaseInsensitive))
    address.prepend(QLatin1String("http://"));
  const QUrl page(address);
  if (!page.isValid()) return;
  const QString scheme = page.scheme();
  if (scheme != QLatin1String("http") && scheme != QLatin1String("https") &&
      scheme != QLatin1String("ftp"))
    return;
  QDesktopServices::openUrl(page);
}

void OpenFolder(const std::string& path) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

}  // namespace parlorwire
