#include <kyr/crash/KyrNewHandler.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/forever_p.h>
#include <kyr/crash/out_of_memory_p.h>

#include <algorithm>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr const char* File = "kyr_init";
constexpr unsigned Lock = 2080, Remove = 2130;
}  // namespace site

namespace {

Forever<Mutex> lockRoom("Kyr::NewHandler", site::File, site::Lock);
Forever<std::vector<NewHandler*>> handlersRoom;

}  // namespace

Mutex& NewHandler::_lock = lockRoom.object;
std::vector<NewHandler*>& NewHandler::_new_handler = handlersRoom.object;
std::new_handler NewHandler::_system_new_handler = nullptr;

NewHandler::~NewHandler() = default;

void NewHandler::install() noexcept {
  const std::new_handler before = std::set_new_handler(&NewHandler::freeMemory);
  if (before != &NewHandler::freeMemory) {
    _system_new_handler = before;
  }
}

void NewHandler::registerThisNewHandler() {
  addHandler(this);
}

void NewHandler::deregisterThisNewHandler() {
  removeHandler(this);
}

// The register may have to grow, and memory be short: freeMemory() then finds the lock taken and
// asks nobody, and the guard gives it back when the allocation throws.
void NewHandler::addHandler(NewHandler* handler) {
  const AutoMutex lock(&_lock);
  _new_handler.push_back(handler);
}

void NewHandler::removeHandler(NewHandler* handler) {
  AutoMutex lock(&_lock);
  const auto end = std::remove(_new_handler.begin(), _new_handler.end(), handler);
  const bool found = end != _new_handler.end();
  _new_handler.erase(end, _new_handler.end());
  lock.unlock();
  if (!found) {
    throw ProgError("Kyr::NewHandler::removeHandler", site::File, site::Remove, "Unknown handler");
  }
}

bool NewHandler::askHandlers() {
  return std::any_of(_new_handler.begin(), _new_handler.end(),
                     [](NewHandler* handler) { return handler->freeSomeMemory(); });
}

bool NewHandler::askHandlersUnlessLocked() {
  if (!_lock.tryLock()) {
    return false;
  }
  const AutoMutex lock(&_lock, AutoMutex::Taken);
  return askHandlers();
}

void NewHandler::freeMemory() {
  if (askHandlersUnlessLocked()) {
    return;
  }
  if (!_system_new_handler) {
    throw OutOfMemory();
  }
  _system_new_handler();
}

}  // namespace Kyr
