#pragma once
// Start-up and shut-down around a command that solves, as for the window: the program log,
// the single-instance lock, the process priority.
#include <filesystem>
#include <iostream>
#include <string>

#include "app/Startup.h"

class CProgramLifetime {
 public:
  CProgramLifetime() {
    for (const std::string& note : StartProgram(std::filesystem::current_path()))
      std::cerr << note << "\n";
  }
  ~CProgramLifetime() { ShutDownProgram(); }
  CProgramLifetime(const CProgramLifetime&) = delete;
  CProgramLifetime& operator=(const CProgramLifetime&) = delete;
};
