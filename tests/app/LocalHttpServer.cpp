#include "LocalHttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace {

bool SendAll(int socket, const std::string& data) {
  std::size_t sent = 0;
  while (sent < data.size()) {
    const ssize_t n = send(socket, data.data() + sent, data.size() - sent, MSG_NOSIGNAL);
    if (n <= 0) return false;
    sent += static_cast<std::size_t>(n);
  }
  return true;
}

const char* ReasonOf(int nStatus) {
  switch (nStatus) {
    case 200:
      return "OK";
    case 429:
      return "Too Many Requests";
    default:
      return "Error";
  }
}

}  // namespace

CLocalHttpServer::CLocalHttpServer(THandler requestHandler) : handler(std::move(requestHandler)) {
  listener = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = 0;  // any free port
  socklen_t size = sizeof(address);
  if (listener < 0 || bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
      listen(listener, 16) != 0 ||
      getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0)
    throw std::runtime_error("the local HTTP server cannot listen");
  port = ntohs(address.sin_port);
  acceptor = std::thread(&CLocalHttpServer::AcceptLoop, this);
}

CLocalHttpServer::~CLocalHttpServer() {
  bStopping.store(true);
  shutdown(listener, SHUT_RDWR);
  acceptor.join();
  {
    const std::lock_guard lock(mutex);
    for (const int socket : openSockets) shutdown(socket, SHUT_RDWR);
  }
  for (std::thread& thread : threads) thread.join();
  // Closed only now, so that no number is reused while a thread may still touch it.
  for (const int socket : openSockets) close(socket);
  close(listener);
}

std::string CLocalHttpServer::Host() const {
  return "127.0.0.1:" + std::to_string(port);
}

std::vector<std::string> CLocalHttpServer::Targets() const {
  const std::lock_guard lock(mutex);
  return targets;
}

void CLocalHttpServer::AcceptLoop() {
  while (!bStopping.load()) {
    const int socket = accept(listener, nullptr, nullptr);
    if (socket < 0) continue;
    ++nConnections;
    const std::lock_guard lock(mutex);
    openSockets.push_back(socket);
    threads.emplace_back(&CLocalHttpServer::Serve, this, socket);
  }
}

// Requests are GETs without a body: each ends with an empty line. The socket is closed by
// the destructor.
void CLocalHttpServer::Serve(int socket) {
  std::string pending;
  char buffer[4096];
  for (;;) {
    std::size_t end;
    while ((end = pending.find("\r\n\r\n")) == std::string::npos) {
      const ssize_t n = recv(socket, buffer, sizeof(buffer), 0);
      if (n <= 0) return;
      pending.append(buffer, static_cast<std::size_t>(n));
    }
    const std::string request = pending.substr(0, end);
    pending.erase(0, end + 4);
    const std::size_t targetStart = request.find(' ') + 1;
    const std::string target =
        request.substr(targetStart, request.find(' ', targetStart) - targetStart);
    {
      const std::lock_guard lock(mutex);
      targets.push_back(target);
    }
    const TCannedReply reply = handler(target);
    std::this_thread::sleep_for(reply.delay);
    const std::string body =
        reply.bTruncated ? reply.body.substr(0, reply.body.size() / 2) : reply.body;
    std::string head = "HTTP/1.1 " + std::to_string(reply.nStatus) + " " + ReasonOf(reply.nStatus) +
                       "\r\nContent-Type: application/json\r\n";
    if (!reply.location.empty()) head += "Location: " + reply.location + "\r\n";
    if (!reply.bUnannounced)
      head += "Content-Length: " + std::to_string(reply.body.size()) + "\r\n";
    head += "\r\n";
    if (!SendAll(socket, head + body) || reply.bTruncated || reply.bUnannounced) {
      shutdown(socket, SHUT_RDWR);  // the client sees the connection end early
      return;
    }
  }
}
