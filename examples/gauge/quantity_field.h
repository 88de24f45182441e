/// \file
/// A line in which the user types a quantity.
#pragma once

#include <kyr/units/KyrQuantityText.h>

#include <QLineEdit>
#include <QValidator>

namespace Gauge {

/// Lets the user type what is a quantity or can become one.
class QuantityValidator : public QValidator {
 public:
  QuantityValidator(const Kyr::QuantityText& texts, QObject* parent)
      : QValidator(parent), _texts(texts) {}

  State validate(QString& text, int& /*cursor*/) const override {
    _last = _texts.read(text);
    return State(_last.state);
  }
  /// What was read last, also where the field then refused it.
  const Kyr::QuantityReading& last() const { return _last; }
  const Kyr::QuantityText& texts() const { return _texts; }
  void setTexts(const Kyr::QuantityText& texts) { _texts = texts; }

 private:
  Kyr::QuantityText _texts;
  mutable Kyr::QuantityReading _last;
};

/// Tells of every change what it means, or why it means nothing, and underlines from where.
class QuantityField : public QLineEdit {
  Q_OBJECT

 public:
  explicit QuantityField(const Kyr::QuantityText& texts, QWidget* parent = nullptr);

  /// Reads and writes otherwise. A quantity in the field stays the same one, in the new unit; any
  /// other text is read anew.
  void setTexts(const Kyr::QuantityText& texts);
  /// Writes a quantity, in its internal unit.
  void setValue(double value);
  /// What the text means.
  const Kyr::QuantityReading& reading() const { return _reading; }

 Q_SIGNALS:
  void changed(const Kyr::QuantityReading& reading);
  /// A key or something pasted was not taken, as nothing behind it could make it a quantity.
  void refused(const QString& reason);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void read();

  QuantityValidator* _validator;
  Kyr::QuantityReading _reading;
};

}  // namespace Gauge
