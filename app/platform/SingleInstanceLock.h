#pragma once
// Tells a second running copy of the program from the first: the first copy
// holds an exclusive lock on a file in the working folder until it exits.
#include <filesystem>

namespace platform {

inline constexpr const char* kInstanceLockFileName = "longmate.lock";

class CSingleInstanceLock {
 public:
  // Tries to take the lock on the file; a copy that finds it held is a second instance.
  explicit CSingleInstanceLock(const std::filesystem::path& lockFile);
  ~CSingleInstanceLock();
  CSingleInstanceLock(const CSingleInstanceLock&) = delete;
  CSingleInstanceLock& operator=(const CSingleInstanceLock&) = delete;

  bool IsSecondInstance() const { return m_bSecondInstance; }
  bool IsHeld() const { return m_fd >= 0; }

 private:
  int m_fd = -1;
  bool m_bSecondInstance = false;
};

}  // namespace platform
