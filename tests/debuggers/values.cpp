// Values for debuggers to show. Everything is made when stop() is called.
#include <kyr/core/KyrStructVector.h>
#include <kyr/files/KyrFilename.h>
#include <kyr/text/KyrNumString.h>
#include <kyr/text/KyrString.h>
#include <kyr/time/KyrTime.h>

#include <array>
#include <cstddef>

using namespace Kyr;

namespace {

class Scan : public Filename::NameWithNumber {
 public:
  using Filename::NameWithNumber::NameWithNumber;
};

// Memory in which no object was ever made, in the classes' place.
struct Nothing {
  explicit Nothing(unsigned char byte) { bytes.fill(byte); }
  alignas(std::max_align_t) std::array<unsigned char, 256> bytes;
};

void stop(const Filename::Name& aName) {
  aName.getFileName();
}

}  // namespace

int main() {
  const KString shortText("a \"b\"");
  const KString german("Gr\u00F6\u00DFe");
  const KString noText;
  const NumString item(QString("item9"));
  const NumString noItem;
  const NumString umlaut(QString::fromUtf8("Gr\u00F6\u00DFe 7"));
  const Time span(12.5);
  const Time moment(1265356657, 123);
  const Time strange(3, 4000000);
  const Filename::Name name(QString("C:\\data\\scan.tif"));
  const Scan scan(QString("/data/img0007.tif"), -1);
  const StructVector<double> numbers{1.5, 2, 3};
  StructVector<const char*> none;
  none.reserve(2);
  const Nothing zeros(0);
  const Nothing ones(0xFF);
  const Nothing mixed(0x5A);
  stop(scan);
}
