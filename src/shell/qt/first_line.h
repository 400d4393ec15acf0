// Keeps line breaks out of a field of one line, by whichever way a text gets in.
#pragma once

#include <QValidator>

namespace parlorwire {

// Of a text with several lines that is put into the field, the first line is taken.
class FirstLineOnly : public QValidator {
  Q_OBJECT

 public:
  using QValidator::QValidator;

  // `caret` stands behind what was put in.
  State validate(QString& text, int& caret) const override;
};

}  // namespace parlorwire
