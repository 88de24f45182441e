#include "gauge_window.h"

#include "quantity_field.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/units/KyrUnits.h>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QStyle>
#include <QVariant>

namespace Gauge {

namespace {

using Kyr::translate;

constexpr const char* looks = R"(
Gauge--GaugeWindow { background: #1d2025; }
QLineEdit { background: #16191d; border: 1px solid #424a55; border-radius: 5px; padding: 5px 8px;
  selection-background-color: #2f5fb3; }
QLineEdit:focus { border-color: #5b97ff; }
QLineEdit[wrong="true"] { border-color: #d8545e; }
QLabel[role="problem"] { color: #ff9aa1; }
)";

}  // namespace

std::vector<Instrument> instruments() {
  const auto degrees = [](double count) { return Kyr::uAngle.from(count, Kyr::Unit::Degree); };
  return {{&Kyr::uLength, translate("Gauge", "&Length"), {0, 100}},
          {&Kyr::uTemp, translate("Gauge", "&Temperature"), {-40, 120}},
          {&Kyr::uAngle, translate("Gauge", "&Angle"), {degrees(-90), degrees(90)}}};
}

GaugeWindow::GaugeWindow(const Instrument& instrument)
    : _instrument(instrument),
      _unit(new QComboBox),
      _field(nullptr),
      _dial(nullptr),
      _message(new QLabel) {
  setWindowTitle(translate("Gauge", "Gauge"));
  setStyleSheet(looks);
  setAttribute(Qt::WA_StyledBackground);
  for (const Kyr::Unit::Units_t unit : _instrument.kind->getUnits()) {
    _unit->addItem(_instrument.kind->getUName(unit), unit);
  }
  _unit->setCurrentIndex(_unit->findData(_instrument.kind->getDefault()));
  _field = new QuantityField(texts());
  _dial = new Dial(texts(), _instrument.range);
  buildRow(_instrument.name);
  connect(_unit, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
          &GaugeWindow::chooseUnit);
  connect(_field, &QuantityField::changed, this, &GaugeWindow::judge);
  connect(_field, &QuantityField::refused, this,
          [this](const QString& reason) { say(reason, "problem"); });
  judge(_field->reading());
}

// The end of the window takes the focus from the field, which tells its value once more then.
GaugeWindow::~GaugeWindow() {
  disconnect(_field, nullptr, this, nullptr);
}

void GaugeWindow::buildRow(const QString& name) {
  constexpr double messageLines = 2.5;  // two, and what a label adds
  _field->setObjectName("quantity");
  _unit->setObjectName("unit");
  _message->setObjectName("message");
  _message->setWordWrap(true);
  _message->setTextFormat(Qt::PlainText);
  _message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  _message->setMinimumHeight(qRound(messageLines * _message->fontMetrics().lineSpacing()));
  auto* const fieldName = new QLabel(name);
  auto* const unitName = new QLabel(translate("Gauge", "&Unit"));
  fieldName->setBuddy(_field);
  unitName->setBuddy(_unit);
  for (QLabel* const label : {fieldName, unitName}) {
    label->setProperty("role", "name");
  }
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(20, 16, 20, 14);
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(4);
  grid->addWidget(_dial, 0, 0, 1, 2);
  grid->addWidget(fieldName, 1, 0);
  grid->addWidget(unitName, 1, 1);
  grid->addWidget(_field, 2, 0);
  grid->addWidget(_unit, 2, 1);
  grid->addWidget(_message, 3, 0, 1, 2);
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(0, 1);
  _unit->setMinimumWidth(84);
  _unit->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

Kyr::QuantityText GaugeWindow::texts() const {
  Kyr::QuantityText texts(*_instrument.kind);
  texts.setUnit(static_cast<Kyr::Unit::Units_t>(_unit->currentData().toInt()));
  return texts.setRange(_instrument.range.least, _instrument.range.most)
      .setGrouping()
      .setArithmetic();
}

void GaugeWindow::setUnit(Kyr::Unit::Units_t unit) {
  _unit->setCurrentIndex(_unit->findData(unit));
}

QString GaugeWindow::message() const {
  return _message->text();
}

void GaugeWindow::chooseUnit() {
  _dial->setTexts(texts());
  _field->setTexts(texts());
}

void GaugeWindow::judge(const Kyr::QuantityReading& reading) {
  _dial->setCurrent(reading.isAcceptable());
  if (reading.isAcceptable()) {
    _dial->setValue(reading.value);
  }
  if (reading.isAcceptable() || _field->text().isEmpty()) {
    say(translate("Gauge", "Any unit may follow the number."), "hint");
  } else {
    say(reading.reason, "problem");
  }
}

void GaugeWindow::say(const QString& text, const QString& role) {
  _message->setText(text);
  _message->setProperty("role", role);
  style()->unpolish(_message);
  style()->polish(_message);
}

}  // namespace Gauge
