/// \file
/// What an application's undo and redo hang on: its one manager and its recorded containers.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/sync/KyrMutex.h>

#include <cstdint>
#include <set>

namespace Kyr {

/// The base of the application's manager of undo records, of which a process has one at most,
/// ever: the place stays taken when the manager is destroyed.
///
/// Created at the start of the application, on the main thread. By itself it records nothing.
/// \threadsafety one thread at a time
class KYR_EXPORT RecordManagerBase {
 public:
  /// Takes the place of the manager.
  /// \throws ProgError "only one manager allowed"
  RecordManagerBase();
  /// Copies nothing; the copy does not take the manager's place, whoever has it. Given
  /// (docs/decisions/0006).
  RecordManagerBase(const RecordManagerBase&) {}
  RecordManagerBase& operator=(const RecordManagerBase&) { return *this; }
  virtual ~RecordManagerBase();

  /// Whether changes are being recorded; here never.
  virtual bool isRecording() const;
  /// Forgets all records; here does nothing.
  virtual void clearAll();
  /// Whether the user may undo and redo now; here never.
  virtual bool isUndoRedoAllowed() const;
  /// Takes back the latest change.
  /// \return whether there was one; here false
  virtual bool undo();
  /// Makes the change again that undo() took back.
  /// \return whether there was one; here false
  virtual bool redo();

 protected:
  static RecordManagerBase* _manager_base;  ///< null until there is one; it may have ended since
  static std::uint32_t _next_record_id;     ///< 0 at first; for the derived manager alone
};

/// The base of the application's containers that record their changes. It knows all that live,
/// from the end of its constructor to the start of its destructor.
///
/// The registry is never destroyed: containers may live in static variables and may end as late
/// in the process as they like.
/// \code
/// class Lengths : public StructRecordVectorBase {
///   void resetRecordingMode() override { _isRecording = true; }
///   bool _isRecording = true;
/// };
/// static Lengths lengths;
/// StructRecordVectorBase::resetAllRecordingModes();  // as for a new project
/// \endcode
/// \threadsafety as each function says
class KYR_EXPORT StructRecordVectorBase {
 public:
  /// \threadsafety any thread
  StructRecordVectorBase();
  /// Copies nothing; the copy is not known, and resetAllRecordingModes() leaves it out. Given
  /// (docs/decisions/0006).
  StructRecordVectorBase(const StructRecordVectorBase&) {}
  StructRecordVectorBase& operator=(const StructRecordVectorBase&) { return *this; }
  /// \threadsafety any thread
  virtual ~StructRecordVectorBase();

  /// Puts the container back into the recording mode that it begins with. Called with the registry
  /// locked: it must neither construct nor destroy recorded containers, nor wait for who does.
  virtual void resetRecordingMode() = 0;

  /// Calls resetRecordingMode() on every container, in the order of their addresses. What it
  /// throws ends the round.
  /// \threadsafety any thread, while no other constructs or destroys containers: one whose derived
  ///               part is missing yet, or already, cannot be reset
  static void resetAllRecordingModes();

 private:
  KYR_HIDDEN static Mutex& _lock;
  // Null at first.
  KYR_HIDDEN static std::set<StructRecordVectorBase*>* _instances KYR_GUARDED_BY(_lock);
};

}  // namespace Kyr
