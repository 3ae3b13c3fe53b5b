#pragma once
#include <coroutine>
#include <exception>
#include <utility>

namespace norvane {

namespace detail {

template <typename T>
struct TaskResult {
  T value{};
  void return_value(T v) { value = std::move(v); }
  T take() { return std::move(value); }
};

template <>
struct TaskResult<void> {
  void return_void() {}
  void take() {}
};

}  // namespace detail

// A lazily started coroutine that ends with a T. Awaiting it from another
// SearchTask runs it at once, inside the await: when it ends without having
// suspended, the awaiting coroutine simply goes on, so any number of awaits
// in a row leaves the stack as it was. When it suspends (its innermost await
// waits for someone else), the awaiting coroutine suspends too, and once the
// task is resumed and ends it hands control straight to the awaiting one
// (symmetric transfer). Ordinary code starts it with resume() and reads
// result() once done() holds. Move-only; destroying it destroys the frame.
template <typename T>
class [[nodiscard]] SearchTask {
 public:
  struct promise_type;
  using Handle = std::coroutine_handle<promise_type>;

  struct promise_type : detail::TaskResult<T> {
    std::coroutine_handle<> continuation = std::noop_coroutine();
    bool runningInAwait = false;  // started by await_suspend, which has not returned yet

    SearchTask get_return_object() { return SearchTask(Handle::from_promise(*this)); }
    std::suspend_always initial_suspend() noexcept { return {}; }
    struct FinalAwaiter {
      bool await_ready() const noexcept { return false; }
      std::coroutine_handle<> await_suspend(Handle h) const noexcept {
        promise_type& p = h.promise();
        if (p.runningInAwait) return std::noop_coroutine();  // back to await_suspend
        return p.continuation;
      }
      void await_resume() const noexcept {}
    };
    FinalAwaiter final_suspend() noexcept { return {}; }
    void unhandled_exception() noexcept { std::terminate(); }
  };

  SearchTask() = default;
  SearchTask(SearchTask&& other) noexcept : handle_(std::exchange(other.handle_, {})) {}
  SearchTask& operator=(SearchTask&& other) noexcept {
    if (this != &other) {
      if (handle_) handle_.destroy();
      handle_ = std::exchange(other.handle_, {});
    }
    return *this;
  }
  SearchTask(const SearchTask&) = delete;
  SearchTask& operator=(const SearchTask&) = delete;
  ~SearchTask() {
    if (handle_) handle_.destroy();
  }

  // Runs the coroutine to its next suspension or its end.
  void resume() { handle_.resume(); }
  bool done() const { return !handle_ || handle_.done(); }
  // The value it ended with, moved out; once done().
  T result() { return handle_.promise().take(); }

  // Awaiting: run it now, with the awaiting coroutine as its continuation;
  // the awaiting coroutine suspends only when the task has.
  bool await_ready() const noexcept { return false; }
  bool await_suspend(std::coroutine_handle<> awaiting) {
    promise_type& p = handle_.promise();
    p.continuation = awaiting;
    p.runningInAwait = true;
    handle_.resume();
    p.runningInAwait = false;
    return !handle_.done();
  }
  T await_resume() { return handle_.promise().take(); }

 private:
  explicit SearchTask(Handle handle) : handle_(handle) {}
  Handle handle_;
};

}  // namespace norvane
