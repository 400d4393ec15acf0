// Keeps a field to what one line of a file of ours can hold.
#pragma once

#include <QValidator>

namespace parlorwire {

// By whichever way they get in, TABs and line breaks become blanks, and characters that
// Windows-1251 lacks become "?".
class OneLineOnly : public QValidator {
  Q_OBJECT

 public:
  using QValidator::QValidator;

  State validate(QString& text, int& caret) const override;
};

}  // namespace parlorwire
