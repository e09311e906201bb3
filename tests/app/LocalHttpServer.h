#pragma once
// A small HTTP server on 127.0.0.1 for the tests of the online tablebase: it answers every
// request with what the test's handler gives, keeps connections alive like the real service,
// and can answer late or cut a body short. Requests are served on threads of their own.
#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

struct TCannedReply {
  int nStatus = 200;
  std::string body{};
  std::chrono::milliseconds delay{0};  // before the reply is sent
  bool bTruncated = false;             // announce the whole body, send half of it and close
  bool bUnannounced = false;           // no Content-Length: the body ends when the server closes
  std::string location{};              // a Location header, for redirects
};

class CLocalHttpServer {
 public:
  using THandler = std::function<TCannedReply(const std::string& target)>;

  explicit CLocalHttpServer(THandler handler);
  ~CLocalHttpServer();
  CLocalHttpServer(const CLocalHttpServer&) = delete;
  CLocalHttpServer& operator=(const CLocalHttpServer&) = delete;

  // "127.0.0.1:port", as the host setting takes it.
  std::string Host() const;
  // The request targets received so far ("/standard?fen=...").
  std::vector<std::string> Targets() const;
  int Connections() const { return nConnections.load(); }

 private:
  void AcceptLoop();
  void Serve(int socket);

  THandler handler;
  int listener = -1;
  int port = 0;
  std::atomic<bool> bStopping{false};
  std::atomic<int> nConnections{0};
  mutable std::mutex mutex;  // guards the members below
  std::vector<std::string> targets;
  std::vector<int> openSockets;
  std::vector<std::thread> threads;
  std::thread acceptor;
};
