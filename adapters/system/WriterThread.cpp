#include "adapters/system/WriterThread.h"

#include <memory>
#include <system_error>
#include <utility>

namespace koru {

void WriterThread::Run(std::packaged_task<void()> task) {
  Run(std::move(task), [] {});
}

void WriterThread::Run(std::packaged_task<void()> task, std::function<void()> done) {
  const auto run = [task = std::make_shared<std::packaged_task<void()>>(std::move(task)),
                    done = std::move(done)] {
    (*task)();
    done();
  };
  if (thread_.joinable()) thread_.join();
  try {
    thread_ = std::jthread(run);
  } catch (const std::system_error&) {
    run();
  }
}

}  // namespace koru
