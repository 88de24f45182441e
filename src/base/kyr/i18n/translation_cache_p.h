/// \file
/// The translations that were asked for.
#pragma once

#include <QString>

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Kyr {

/// The translations asked for so far, by context and source text.
///
/// Any thread reads without a lock, because nothing that a reader may look at is changed or
/// freed before the cache ends; who stores holds the translator's mutex. A table that became too
/// small is therefore kept: all of them together are no larger than the one in use.
class TranslationCache {
 public:
  /// Names a text that is looked for, without a copy. Its hash takes the context's length only: few
  /// texts stand in several contexts.
  struct Key {
    Key(std::string_view itsContext, std::string_view itsText) noexcept
        : context(itsContext),
          text(itsText),
          hash(std::hash<std::string_view>()(itsText) + itsContext.size()) {}
    std::string_view context;
    std::string_view text;
    std::size_t hash;
  };

  TranslationCache();
  ~TranslationCache();
  TranslationCache(const TranslationCache&) = delete;
  TranslationCache& operator=(const TranslationCache&) = delete;

  /// \return null for what nobody has stored; lives as long as the cache
  const QString* find(const Key& key) const noexcept;
  /// Keeps a translation; of a text that is there already the first one stays.
  void store(const Key& key, const QString& translation);

 private:
  struct Entry {
    explicit Entry(const Key& key, QString itsTranslation)
        : hash(key.hash),
          context(key.context),
          text(key.text),
          translation(std::move(itsTranslation)) {}
    bool is(const Key& key) const noexcept {
      return hash == key.hash && text == key.text && context == key.context;
    }
    const std::size_t hash;
    const std::string context;
    const std::string text;
    const QString translation;
  };
  /// Open addressing, a power of two of places, never more than half of them taken.
  using Table = std::vector<std::atomic<const Entry*>>;

  static void insert(Table& table, const Entry* entry) noexcept;
  void grow();

  std::atomic<const Table*> _table;
  std::vector<std::unique_ptr<Table>> _tables;  // this and the next are used by who stores
  std::vector<std::unique_ptr<Entry>> _entries;
};

inline const QString* TranslationCache::find(const Key& key) const noexcept {
  const Table& table = *_table.load(std::memory_order_acquire);
  for (std::size_t place = key.hash;; ++place) {
    const Entry* const entry = table[place & (table.size() - 1)].load(std::memory_order_acquire);
    if (!entry) {
      return nullptr;
    }
    if (entry->is(key)) {
      return &entry->translation;
    }
  }
}

}  // namespace Kyr
