#include "message_bar.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>
#include <QVariant>

namespace Viewer {

using Kyr::translate;

MessageBar::MessageBar(QWidget* parent) : QFrame(parent), _text(new QLabel) {
  setObjectName("messages");
  setAccessibleName(translate("Viewer", "Message"));
  _text->setObjectName("message");
  _text->setWordWrap(true);
  _text->setTextFormat(Qt::PlainText);
  _text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const close = new QToolButton;
  close->setObjectName("dismiss");
  close->setText(QString::fromUtf8("✕"));
  close->setAccessibleName(translate("Viewer", "Put the message away"));
  close->setToolTip(close->accessibleName());
  connect(close, &QToolButton::clicked, this, &QWidget::hide);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(16, 9, 8, 9);
  row->addWidget(_text, 1);
  row->addWidget(close, 0, Qt::AlignTop);
  hide();
}

QString MessageBar::text() const {
  return isHidden() ? QString() : _text->text();
}

void MessageBar::show(const QString& text, const QString& kind) {
  _text->setText(text);
  _text->setAccessibleName(text);
  setProperty("kind", kind);
  style()->unpolish(this);
  style()->polish(this);
  setVisible(true);
}

}  // namespace Viewer
