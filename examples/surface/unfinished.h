/// \file
/// Files that are written whole or not at all.
#pragma once

#include <QString>

namespace Surface {

/// The name to write a file under until it is complete. What stands there when this object ends
/// is removed; a file of the final name stays as it was.
class Unfinished {
 public:
  /// \param finalName of the file
  explicit Unfinished(const QString& finalName);
  ~Unfinished();
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;

  const QString& name() const { return _name; }
  /// Gives the complete, closed file its final name, in place of an older one.
  /// \return false when the system refuses
  bool finish();

 private:
  const QString _finalName;
  const QString _name;
};

}  // namespace Surface
