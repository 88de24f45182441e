#include "Fuzz.h"

#include <kyr/i18n/catalogue_p.h>

#include <QTranslator>

namespace KyrFuzz {

/// A catalogue that passed the check leads no look-up out of its bytes, behind which there is no
/// memory. Qt follows it without a look of its own, and no sanitizer sees into Qt.
void harness(Choices input) {
  const QByteArray context = arrayOf(input.line());
  const QByteArray source = arrayOf(input.line());
  const QByteArray comment = arrayOf(input.line());
  const auto number = static_cast<int>(input.upTo(255));
  const Kyr::Catalogue::Checked checked = Kyr::Catalogue::check(arrayOf(input.rest()));
  if (checked.bytes.isNull()) {
    return;
  }
  const std::string_view bytes = fenced({checked.bytes.constData(), size_t(checked.bytes.size())});
  QTranslator translator;
  if (translator.load(reinterpret_cast<const uchar*>(bytes.data()), int(bytes.size()))) {
    for (const int count : {-1, number}) {
      translator.translate(context.constData(), source.constData(), comment.constData(), count);
      translator.translate("Kyr", "Hello", nullptr, count);
      translator.translate("", source.constData(), nullptr, count);
    }
  }
}

}  // namespace KyrFuzz
