#pragma once
// A local stand-in for the maker's update service: an HTTP server on
// 127.0.0.1 at a port chosen free at start, answering
// GET /AutomaticUpdateServiceLibrary/CheckForUpdates?product=N&... with the
// JSON text kept for product N (set in code or read from <folder>/N.json),
// receiving usage reports at POST /UsageReportService/Upload (a JSON body
// whose "Frame" is the base64 of a 4-byte little-endian length and that many
// bytes), and misbehaving on request in the ways a real network can.
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kvt1::service {

enum class ServiceMode {
  Answer,            // 200 with the product's answer (an upload: with a well-formed frame), 404 without
  Slow,              // the same after the delay
  NoContent,         // 204
  MovedPermanently,  // 301 to another path, with the answer as its body
  ServerError,       // 500, with the answer as its body
  Garbage,           // 200 with a body that is not JSON
  Oversized,         // 200 with a body of 100 MB and no declared length
  Close,             // closes the connection without a word
  Hang,              // accepts, reads the request and never answers
};

// "answer", "slow", "204", "301", "500", "garbage", "oversized", "close", "hang".
bool parseServiceMode(const std::string& name, ServiceMode& mode);

// One usage report upload as it arrived.
struct ReceivedUpload {
  std::string body;                 // the request body
  std::vector<std::uint8_t> frame;  // "Frame" decoded from base64
  bool wellFormed = false;          // the frame's length prefix matches the bytes after it
};

// The frame in an upload body; false when there is no "Frame" string or it is not base64.
bool decodeUploadFrame(const std::string& body, std::vector<std::uint8_t>& frame);

class UpdateService {
 public:
  UpdateService();
  ~UpdateService();
  UpdateService(const UpdateService&) = delete;
  UpdateService& operator=(const UpdateService&) = delete;

  // Listens on 127.0.0.1 at a free port; false when that failed.
  bool start();
  // Closes every connection (waking hung ones) and stops listening.
  void stop();
  unsigned short port() const { return port_; }
  // "127.0.0.1:<port>", as a host name in a URL.
  std::string hostAndPort() const;

  void setMode(ServiceMode mode);
  void setDelayMs(int milliseconds);
  void setAnswer(std::uint32_t product, std::string json);
  void setAnswersFolder(std::string folder);
  // Called with each request line as it arrives (from the connection's thread).
  void setRequestLog(std::function<void(const std::string&)> log);

  // Request lines ("GET /path?query HTTP/1.1") seen so far, in order.
  std::vector<std::string> requests() const;
  // Usage report uploads received so far, in order (also those answered with an error).
  std::vector<ReceivedUpload> uploads() const;

 private:
  using Socket = std::intptr_t;

  void acceptLoop();
  void serve(Socket connection);
  bool answerFor(const std::string& target, std::string& json) const;
  bool acceptUpload(const std::string& body, std::string& json);
  void waitFor(int milliseconds);

  mutable std::mutex mutex_;
  std::condition_variable stopped_;
  bool stopping_ = false;
  Socket listener_ = -1;
  unsigned short port_ = 0;
  std::thread acceptor_;
  std::vector<std::thread> connections_;
  std::vector<Socket> openSockets_;
  ServiceMode mode_ = ServiceMode::Answer;
  int delayMs_ = 2000;
  std::map<std::uint32_t, std::string> answers_;
  std::string answersFolder_;
  std::function<void(const std::string&)> log_;
  std::vector<std::string> requests_;
  std::vector<ReceivedUpload> uploads_;
};

}  // namespace kvt1::service
