// A quiet word at an input box about characters that will not arrive.
#pragma once

#include <QObject>
#include <QString>

class QLineEdit;

namespace parlorwire {

struct Client;

// The characters of a text that the chat's wire lacks, each once.
QString LostOnTheWire(const QString& text);

// While the box holds such characters, a tool tip says once for each that it will arrive as "?".
class WireHint : public QObject {
  Q_OBJECT

 public:
  // Belongs to the box.
  WireHint(const Client& client, QLineEdit* box);

 private:
  void Look(const QString& text);

  const Client& client_;
  QLineEdit* box_;
  QString told_;
};

}  // namespace parlorwire
