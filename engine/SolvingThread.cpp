#include "engine/SolvingThread.h"

#include <pthread.h>

#include <new>

struct CSolvingThread::TState {
  std::function<void()> body;
  pthread_t handle{};
  bool bRunning = false;
};

namespace {
void* RunBody(void* argument) {
  (*static_cast<std::function<void()>*>(argument))();
  return nullptr;
}
}  // namespace

CSolvingThread::CSolvingThread() = default;
CSolvingThread::~CSolvingThread() {
  Join();
}

bool CSolvingThread::Start(std::function<void()> body, std::size_t nStackBytes) noexcept {
  try {
    state = std::make_unique<TState>();
  } catch (const std::bad_alloc&) {
    return false;
  }
  state->body = std::move(body);
  pthread_attr_t attributes;
  if (pthread_attr_init(&attributes) != 0) return false;
  pthread_attr_setstacksize(&attributes, nStackBytes);
  state->bRunning = pthread_create(&state->handle, &attributes, RunBody, &state->body) == 0;
  pthread_attr_destroy(&attributes);
  return state->bRunning;
}

void CSolvingThread::Join() {
  if (state && state->bRunning) {
    pthread_join(state->handle, nullptr);
    state->bRunning = false;
  }
}
