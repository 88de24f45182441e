#include <kyr/i18n/translation_cache_p.h>

namespace Kyr {

namespace {

constexpr std::size_t firstSize = 256;

}  // namespace

TranslationCache::TranslationCache() {
  _tables.push_back(std::make_unique<Table>(firstSize));
  _table = _tables.back().get();
}

TranslationCache::~TranslationCache() = default;

void TranslationCache::store(const Key& key, const QString& translation) {
  if (find(key)) {
    return;
  }
  if (2 * (_entries.size() + 1) > _tables.back()->size()) {
    grow();
  }
  _entries.push_back(std::make_unique<Entry>(key, translation));
  insert(*_tables.back(), _entries.back().get());
}

void TranslationCache::insert(Table& table, const Entry* entry) noexcept {
  std::size_t place = entry->hash;
  while (table[place & (table.size() - 1)].load(std::memory_order_relaxed)) {
    ++place;
  }
  table[place & (table.size() - 1)].store(entry, std::memory_order_release);
}

// The new table is shown to readers when it holds all that the old one did.
void TranslationCache::grow() {
  auto larger = std::make_unique<Table>(2 * _tables.back()->size());
  for (const auto& entry : _entries) {
    insert(*larger, entry.get());
  }
  _tables.push_back(std::move(larger));
  _table.store(_tables.back().get(), std::memory_order_release);
}

}  // namespace Kyr
