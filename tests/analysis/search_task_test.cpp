// The coroutine task the pass search is written in: values pass up through
// nested tasks, a suspension deep inside surfaces at the outermost resume(),
// and a long chain of awaits that complete at once does not grow the stack.
#include <gtest/gtest.h>

#include <coroutine>

#include "core/analysis/search_task.h"

namespace norvane {
namespace {

// Suspends until someone resumes `waiting` with `value` filled in.
struct Mailbox {
  std::coroutine_handle<> waiting;
  int value = 0;
};

struct Receive {
  Mailbox& box;
  bool await_ready() const { return false; }
  void await_suspend(std::coroutine_handle<> h) const { box.waiting = h; }
  int await_resume() const { return box.value; }
};

SearchTask<int> received(Mailbox& box, int times) {
  int sum = 0;
  for (int i = 0; i < times; ++i) sum += co_await Receive{box};
  co_return sum;
}

SearchTask<int> plusOne(int x) { co_return x + 1; }

SearchTask<void> addReceived(Mailbox& box, long& total) {
  const int n = co_await received(box, 3);
  // cppcheck-suppress missingReturn ; a coroutine of void may end without co_return
  total += n;
}

SearchTask<long> outer(Mailbox& box, int chain) {
  long total = 0;
  for (int i = 0; i < chain; ++i) total = co_await plusOne(static_cast<int>(total));
  co_await addReceived(box, total);
  co_return total;
}

TEST(SearchTask, SuspendsInsideNestedTasksAndCompletesLongChains) {
  Mailbox box;
  // A million awaits that complete at once would overflow the stack if each
  // resumed its awaiting task from inside its own frame.
  SearchTask<long> task = outer(box, 1000000);
  task.resume();
  for (int value : {5, 7, 11}) {
    ASSERT_FALSE(task.done());
    ASSERT_TRUE(box.waiting);
    box.value = value;
    box.waiting.resume();
  }
  ASSERT_TRUE(task.done());
  EXPECT_EQ(task.result(), 1000000 + 5 + 7 + 11);
}

}  // namespace
}  // namespace norvane
