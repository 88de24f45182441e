#include <kyr/jobs/KyrStopToken.h>

#include <kyr/core/forever_p.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/work_context_p.h>
#include <kyr/sync/KyrMutex.h>

#include <atomic>
#include <thread>
#include <utility>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned TreeMutex = 36, Finished = 58;
constexpr const char* File = "kyr_stop_token";
}  // namespace site

namespace {

Forever<Mutex> treeLock("Kyr::StopToken::stop", site::File, site::TreeMutex);
/// Guards who hangs on whom. Nothing is called and no other lock is taken while it is held.
Mutex& tree = treeLock.object;

template <class Linked>
void link(Linked*& first, Linked& added) KYR_REQUIRES(tree) {
  added.next = first;
  first = &added;
}

template <class Linked>
void unlink(Linked*& first, Linked& removed) KYR_REQUIRES(tree) {
  Linked** place = &first;
  while (*place != &removed) {
    place = &(*place)->next;
  }
  *place = removed.next;
}

}  // namespace

/// A callback of a token, alive until it has returned.
struct StopCallback::Node {
  Node(StopToken of, std::function<void()> callback)
      : token(std::move(of)), function(std::move(callback)) {}

  /// Tells that the callback has returned; for the thread that called it.
  void finish() noexcept {
    const std::unique_ptr<Node> orphan(isOrphan ? this : nullptr);
    const AutoMutex lock(&tree);
    caller = {};
    isCalled = false;
    finished.broadcast();
  }

  const StopToken token;
  const std::function<void()> function;
  Node* next = nullptr;
  /// The thread that has to call it, until the call has returned; none at other times.
  std::thread::id caller;
  bool isCalled = false;
  bool isOrphan = false;  ///< belongs to the call, which has ended its owner
  Condition finished{"Kyr::StopCallback::StopCallback", site::File, site::Finished, &tree};
};

struct StopToken::State {
  explicit State(std::shared_ptr<State> above = nullptr) : parent(std::move(above)) {
    if (parent) {
      const AutoMutex lock(&tree);
      stopped = parent->stopped.load();
      link(parent->children, *this);
    }
  }
  ~State() {
    if (parent) {
      const AutoMutex lock(&tree);
      unlink(parent->children, *this);
    }
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  /// Stops this state and all below; their callbacks are this thread's to call, but for those that
  /// run since the flag of Progress was set before.
  void mark() noexcept KYR_REQUIRES(tree) {
    if (stopped.exchange(true)) {
      return;
    }
    for (StopCallback::Node* node = callbacks; node; node = node->next) {
      node->caller = node->isCalled ? node->caller : std::this_thread::get_id();
    }
    for (State* child = children; child; child = child->next) {
      child->mark();
    }
  }

  /// A callback that this thread has to call and has not begun.
  StopCallback::Node* nextCall() const noexcept KYR_REQUIRES(tree) {
    for (StopCallback::Node* node = callbacks; node; node = node->next) {
      // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): what a call deletes is in no list
      if (!node->isCalled && node->caller == std::this_thread::get_id()) {
        return node;
      }
    }
    for (const State* child = children; child; child = child->next) {
      if (StopCallback::Node* const node = child->nextCall()) {
        return node;
      }
    }
    return nullptr;
  }

  StopCallback::Node* takeCall() noexcept {
    const AutoMutex lock(&tree);
    StopCallback::Node* const node = nextCall();
    if (node) {
      node->isCalled = true;
    }
    return node;
  }

  void callAll() noexcept {
    while (StopCallback::Node* const node = takeCall()) {
      node->function();
      node->finish();
    }
  }

  const std::shared_ptr<State> parent;
  bool isOfProgress = false;
  std::atomic<bool> stopped{false};
  State* next = nullptr;
  State* children = nullptr;
  StopCallback::Node* callbacks = nullptr;
};

namespace {

void callNow(const std::function<void()>& callback) noexcept {
  callback();
}

/// The token of Progress; null until somebody asks for it.
StopToken* tokenOfProgress = nullptr;  // set once, under the mutex of the abort flag
std::atomic<bool> hasTokenOfProgress{false};

}  // namespace

Stopped::Stopped() : Exception("stopped") {}

Stopped::~Stopped() = default;

StopToken::StopToken() : StopToken(std::make_shared<State>()) {}

StopToken::StopToken(std::shared_ptr<State> state) : _state(std::move(state)) {}

// Never destroyed: the progress is usable while the process ends.
StopToken StopToken::ofProgress() {
  if (!hasTokenOfProgress.load(std::memory_order_acquire)) {
    auto made = std::make_unique<StopToken>();
    made->_state->isOfProgress = true;
    const AutoMutex locked(&Progress::_abort_mutex);
    if (!tokenOfProgress) {
      made->_state->stopped = Progress::_abort;
      tokenOfProgress = made.release();
      hasTokenOfProgress.store(true, std::memory_order_release);
    }
  }
  return *tokenOfProgress;
}

void StopToken::markOfProgress(bool stopped) noexcept {
  if (!tokenOfProgress) {
    return;
  }
  const AutoMutex lock(&tree);
  if (stopped) {
    tokenOfProgress->_state->mark();
  } else {
    tokenOfProgress->_state->stopped = false;
  }
}

void StopToken::callOfProgress() noexcept {
  if (hasTokenOfProgress.load(std::memory_order_acquire)) {
    tokenOfProgress->_state->callAll();
  }
}

StopToken StopToken::current() {
  const StopToken* const token = workContext().stop;
  return token ? *token : ofProgress();
}

StopToken StopToken::child() const {
  return StopToken(std::make_shared<State>(_state));
}

void StopToken::stop() const noexcept {
  if (_state->isOfProgress) {
    Progress::setAbortFlag(true);
    return;
  }
  const std::shared_ptr<State> state = _state;  // a callback may end whatever has the token
  {
    const AutoMutex lock(&tree);
    state->mark();
  }
  state->callAll();
}

bool StopToken::isStopped() const noexcept {
  if (Pauses::areMeasured()) {
    Pauses::noteLook();
  }
  return _state->stopped.load(std::memory_order_acquire);
}

void StopToken::throwIfStopped() const {
  if (isStopped()) {
    throw Stopped();
  }
}

void throwIfStopped() {
  if (isStopped()) {
    throw Stopped();
  }
}

bool isStopped() noexcept {
  const StopToken* const token = workContext().stop;
  if (token) {
    return token->isStopped();
  }
  if (Pauses::areMeasured()) {
    Pauses::noteLook();
  }
  return Progress::getAbortFlag();
}

StopScope::StopScope(const StopToken& token) : _token(token), _before(workContext().stop) {
  workContext().stop = &_token;
}

StopScope::~StopScope() {
  workContext().stop = _before;
}

StopCallback::StopCallback(const StopToken& token, std::function<void()> callback)
    : _node(std::make_unique<Node>(token, std::move(callback))) {
  StopToken::State& state = *token._state;
  bool isStopped = false;
  {
    const AutoMutex lock(&tree);
    isStopped = state.stopped;
    link(state.callbacks, *_node);
  }
  if (isStopped) {
    callNow(_node->function);
  }
}

StopCallback::~StopCallback() {
  const AutoMutex lock(&tree);
  while (_node->isCalled && _node->caller != std::this_thread::get_id()) {
    _node->finished.wait();
  }
  unlink(_node->token._state->callbacks, *_node);
  if (_node->isCalled) {
    _node->isOrphan = true;
    static_cast<void>(_node.release());  // this thread is in the call, which deletes it
  }
}

}  // namespace Kyr
