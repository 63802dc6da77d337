#include "host/BackgroundWork.h"

#include <QThread>
#include <utility>

namespace koru {

BackgroundWork::BackgroundWork() = default;

BackgroundWork::~BackgroundWork() {
  for (const auto& thread : threads_) thread->wait();
}

void BackgroundWork::Run(std::function<void()> work, QObject& receiver, std::function<void()> done) {
  std::erase_if(threads_, [](const auto& thread) { return thread->isFinished(); });
  std::unique_ptr<QThread> thread(QThread::create(std::move(work)));
  QObject::connect(thread.get(), &QThread::finished, &receiver, std::move(done));
  thread->start();
  threads_.push_back(std::move(thread));
}

}  // namespace koru
