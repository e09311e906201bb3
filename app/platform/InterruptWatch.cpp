#include "app/platform/InterruptWatch.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <stdexcept>

namespace platform {

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM};
// 0 is no signal: it tells the watcher to end.
constexpr unsigned char kEndWatch = 0;

// The write end of the pipe of the one watch there may be; read by the handler.
std::atomic<int> nSignalPipe{-1};
struct sigaction previous[std::size(kSignals)];

void OnSignal(int nSignal) {
  const int nSavedErrno = errno;
  // The next signal, of either kind, ends the process.
  struct sigaction fallback = {};
  fallback.sa_handler = SIG_DFL;
  for (int n : kSignals) sigaction(n, &fallback, nullptr);
  const auto byte = static_cast<unsigned char>(nSignal);
  const int fd = nSignalPipe.load();
  if (fd >= 0 && write(fd, &byte, 1) < 0) {
    // Nothing can be done about it here.
  }
  errno = nSavedErrno;
}

}  // namespace

CInterruptWatch::CInterruptWatch(std::function<void(int nSignal)> onSignal) {
  if (pipe2(pipeEnds, O_CLOEXEC) != 0) throw std::runtime_error("Cannot create the signal pipe");
  int nFree = -1;
  if (!nSignalPipe.compare_exchange_strong(nFree, pipeEnds[1])) {
    close(pipeEnds[0]);
    close(pipeEnds[1]);
    throw std::logic_error("Only one interrupt watch may exist at a time");
  }
  watcher = std::thread([this, callback = std::move(onSignal)] { Watch(callback); });
  struct sigaction action = {};
  action.sa_handler = OnSignal;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < std::size(kSignals); ++i)
    sigaction(kSignals[i], &action, &previous[i]);
}

CInterruptWatch::~CInterruptWatch() {
  for (std::size_t i = 0; i < std::size(kSignals); ++i)
    sigaction(kSignals[i], &previous[i], nullptr);
  while (write(pipeEnds[1], &kEndWatch, 1) < 0 && errno == EINTR) {
  }
  watcher.join();
  nSignalPipe.store(-1);
  close(pipeEnds[0]);
  close(pipeEnds[1]);
}

void CInterruptWatch::Watch(const std::function<void(int)>& onSignal) const {
  bool bCalled = false;
  for (;;) {
    unsigned char byte = kEndWatch;
    const auto nRead = read(pipeEnds[0], &byte, 1);
    if (nRead < 0 && errno == EINTR) continue;
    if (nRead <= 0 || byte == kEndWatch) return;
    if (!bCalled) onSignal(byte);
    bCalled = true;
  }
}

}  // namespace platform
