// Requests that are malformed, too large, too slow or too many.

#include <QCoreApplication>

#include "tests/desktop/floor/server/ServerWorld.h"

namespace koru::test {
namespace {

class HttpLimits : public ServerWorld {
 protected:
  /// The status of a request with these header fields and this body; 0 when the connection is closed.
  int StatusOf(const std::string& fields, const std::string& body = "") {
    return Ask("POST /a/figures HTTP/1.1\r\nHost: localhost\r\n" + Authorized(1) + fields + "\r\n" + body)
        .status;
  }
};

TEST_F(HttpLimits, A_body_has_one_length_of_digits) {
  const std::string body = Figure(1, "G2", "5");
  const std::string size = std::to_string(body.size());
  EXPECT_EQ(StatusOf("Content-Length: " + size + "\r\nContent-Length: " + size + "\r\n", body), 400);
  EXPECT_EQ(StatusOf("Content-Length: " + size + "\r\nContent-Length: 1\r\n", body), 400);
  for (const char* length : {"-5", "3abc", "+5", "", "0x10", "1 2", "99999999999999999999999"}) {
    const int status = StatusOf(std::string("Content-Length: ") + length + "\r\n", body);
    EXPECT_TRUE(status == 400 || status == 413) << length << " gives " << status;
  }
  EXPECT_EQ(Count({"G2", 1}, 1), "");
}

TEST_F(HttpLimits, A_body_in_chunks_is_refused) {
  const std::string chunks = "2\r\n{}\r\n0\r\n\r\n";
  EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", chunks), 411);
  EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\nContent-Length: 2\r\n", chunks), 411);
  EXPECT_EQ(StatusOf("Content-Length: 2\r\nTransfer-Encoding: chunked\r\n", chunks), 411);
  EXPECT_EQ(StatusOf("Transfer-Encoding: gzip\r\nContent-Length: 2\r\n", "{}"), 411);
  EXPECT_EQ(StatusOf("", "{}"), 411) << "without a length";
}

TEST_F(HttpLimits, A_body_that_is_announced_as_too_large_is_not_read) {
  EXPECT_EQ(StatusOf("Content-Length: 300000000\r\n"), 413);
  EXPECT_EQ(StatusOf("Content-Length: 262145\r\n"), 413);
  const std::string largest(256UL * 1024, ' ');
  EXPECT_EQ(StatusOf("Content-Length: 262144\r\n", largest), 400) << "read, and no JSON";
  EXPECT_EQ(Ask(RequestText("GET", "/a/lines", Authorized(1) + "Content-Length: 5\r\n", "hello")).status,
            413);
}

TEST_F(HttpLimits, Without_the_code_no_body_is_read) {
  HttpClient client(server_->Port());
  client.Send("POST /a/figures HTTP/1.1\r\nHost: localhost\r\nContent-Length: 200000\r\n\r\n");
  EXPECT_EQ(client.Receive().status, 401);
  EXPECT_TRUE(client.WaitForEnd());
}

TEST_F(HttpLimits, Long_header_fields_lines_and_addresses_are_refused) {
  const int field = Ask(RequestText("GET", "/", "X-Long: " + std::string(20'000, 'a') + "\r\n")).status;
  EXPECT_EQ(field, 431);
  EXPECT_EQ(Ask(RequestText("GET", "/", "X-Long: " + std::string(9'000, 'a') + "\r\n")).status, 431);
  EXPECT_EQ(Ask(RequestText("GET", "/", "X-Long: " + std::string(4'000, 'a') + "\r\n")).status, 200);
  EXPECT_EQ(Ask(RequestText("GET", "/" + std::string(30'000, 'a'), "")).status, 414);
  std::string many;
  for (int i = 0; i < 5'000; ++i) many += "a: b\r\n";
  const int fields = Ask(RequestText("GET", "/", many)).status;
  EXPECT_TRUE(fields == 431 || fields == 413) << fields;
}

TEST_F(HttpLimits, What_is_not_http_is_refused) {
  for (const std::string& bytes :
       {std::string("\r\n\r\n\r\n\r\nx\r\n\r\n"), std::string("GET\r\n\r\n"),
        std::string("GET / HTTP/9.9\r\n\r\n"),
        std::string("\x16\x03\x01\x02\x01\x01\xfc\x03\x03 a handshake of TLS\r\n\r\n"),
        std::string("GET / HTTP/1.1\r\nHost : localhost\r\n\r\n"), std::string("GET / HTTP/1.1\nHost\n\n"),
        std::string("GET / FTP/1.1\r\nHost: localhost\r\n\r\n")}) {
    const int status = Ask(bytes).status;
    EXPECT_TRUE(status == 0 || status >= 400) << bytes << " gives " << status;
  }
}

TEST_F(HttpLimits, Requests_of_HTTP_1_0_are_answered_and_their_connection_closed) {
  HttpClient client(server_->Port());
  client.Send("GET / HTTP/1.0\r\nHost: localhost\r\n\r\n");
  EXPECT_EQ(client.Receive().status, 200);
  EXPECT_TRUE(client.WaitForEnd());
}

TEST_F(HttpLimits, A_connection_is_closed_where_the_device_asks_for_that) {
  HttpClient client(server_->Port());
  client.Send(RequestText("GET", "/", "Connection: close\r\n"));
  EXPECT_EQ(client.Receive().status, 200);
  EXPECT_TRUE(client.WaitForEnd());
}

TEST_F(HttpLimits, Requests_that_follow_each_other_without_waiting_are_answered_in_their_order) {
  HttpClient client(server_->Port());
  std::string requests;
  for (int i = 1; i <= 5; ++i) {
    requests += RequestText("POST", "/a/figures", Authorized(1), Figure(i, "G2", "1", "add"));
  }
  client.Send(requests + RequestText("GET", "/none", ""));
  for (int i = 1; i <= 5; ++i) {
    const QJsonObject item = client.Receive().Json()["items"].toArray().at(0).toObject();
    EXPECT_EQ(item["seq"].toInt(), i);
    EXPECT_EQ(item["text"].toString().toStdString(), std::to_string(i));
  }
  EXPECT_EQ(client.Receive().status, 404);
}

TEST_F(HttpLimits, A_request_in_small_pieces_is_read) {
  HttpClient client(server_->Port());
  for (const char c : RequestText("POST", "/a/figures", Authorized(1), Figure(1, "G2", "5"))) {
    client.Send(std::string(1, c));
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(StateOf(client.Receive()), "stored");
}

TEST_F(HttpLimits, Who_waits_for_leave_to_send_the_body_is_given_it) {
  HttpClient client(server_->Port());
  const std::string body = Figure(1, "G2", "5");
  client.Send("POST /a/figures HTTP/1.1\r\nHost: localhost\r\nExpect: 100-continue\r\n" + Authorized(1) +
              "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n");
  EXPECT_EQ(client.Receive().status, 100);
  client.Send(body);
  EXPECT_EQ(StateOf(client.Receive()), "stored");
}

TEST_F(HttpLimits, Slow_requests_are_dropped_at_each_of_their_stages) {
  settings_.limits.request = std::chrono::milliseconds(20);
  settings_.limits.idle = std::chrono::milliseconds(20);
  Serve();
  const std::string whole = RequestText("POST", "/a/figures", Authorized(1), Figure(1, "G2", "5"));
  for (const std::size_t sent : {0UL, 3UL, 30UL, whole.size() - 1}) {
    HttpClient client(server_->Port());
    client.Send(whole.substr(0, sent));
    EXPECT_TRUE(client.WaitForEnd()) << sent;
  }
  HttpClient idle(server_->Port());
  idle.Send(RequestText("GET", "/", ""));
  EXPECT_EQ(idle.Receive().status, 200);
  EXPECT_TRUE(idle.WaitForEnd());
}

TEST_F(HttpLimits, A_drop_now_and_then_does_not_keep_a_slow_request_alive) {
  settings_.limits.request = std::chrono::milliseconds(30);
  Serve();
  HttpClient client(server_->Port());
  client.Send("GET / HTTP/1.1\r\nHost: localhost\r\nX: ");
  RunUntil([&] {
    client.Send("a");
    return !client.IsOpen();
  });
  EXPECT_FALSE(client.IsOpen());
}

TEST_F(HttpLimits, Who_does_not_read_the_answer_is_dropped) {
  settings_.limits.answer = std::chrono::milliseconds(30);
  settings_.limits.requestsOfAddress = 1'000'000;
  Serve();
  HttpClient client(server_->Port());
  std::string requests;
  for (int i = 0; i < 40'000; ++i) requests += RequestText("GET", "/none", "");
  client.StopReading();
  client.Send(requests);
  RunUntil([&] {
    client.Send("GET");
    return !client.IsOpen();
  });
  EXPECT_FALSE(client.IsOpen());
}

TEST_F(HttpLimits, An_address_has_a_bounded_number_of_connections) {
  settings_.limits.connectionsOfAddress = 3;
  Serve();
  std::vector<std::unique_ptr<HttpClient>> clients;
  for (int i = 0; i < 3; ++i) {
    clients.push_back(std::make_unique<HttpClient>(server_->Port()));
    clients.back()->Send(RequestText("GET", "/", ""));
    EXPECT_EQ(clients.back()->Receive().status, 200);
  }
  HttpClient tooMany(server_->Port());
  tooMany.Send(RequestText("GET", "/", ""));
  EXPECT_EQ(tooMany.Receive().status, 0);
  clients.pop_back();
  RunUntil([&] { return Ask(RequestText("GET", "/", "")).status == 200; });
}

TEST_F(HttpLimits, Thirty_devices_that_come_by_the_address_of_one_router_are_served_together) {
  std::vector<std::unique_ptr<HttpClient>> clients;
  for (int i = 0; i < 90; ++i) {
    clients.push_back(std::make_unique<HttpClient>(server_->Port()));
    clients.back()->Send(RequestText("GET", "/", ""));
    ASSERT_EQ(clients.back()->Receive().status, 200) << "connection " << i;
  }
}

TEST_F(HttpLimits, All_addresses_together_have_a_bounded_number_of_connections) {
  settings_.limits.connections = 2;
  Serve();
  std::vector<std::unique_ptr<HttpClient>> clients;
  for (int i = 0; i < 2; ++i) {
    clients.push_back(std::make_unique<HttpClient>(server_->Port()));
    clients.back()->Send(RequestText("GET", "/", ""));
    EXPECT_EQ(clients.back()->Receive().status, 200);
  }
  HttpClient waits(server_->Port());
  waits.Send(RequestText("GET", "/", ""));
  EXPECT_FALSE(waits.HasAnswer());
  clients.clear();
  EXPECT_EQ(waits.Receive().status, 200) << "it has its turn when another has ended";
}

TEST_F(HttpLimits, An_address_has_a_bounded_number_of_requests_in_a_second) {
  settings_.limits.requestsOfAddress = 3;
  Serve();
  int refused = 0;
  for (int i = 0; i < 20; ++i) refused += Ask(RequestText("GET", "/", "")).status == 429 ? 1 : 0;
  EXPECT_GT(refused, 0);
}

TEST_F(HttpLimits, A_session_has_a_bounded_number_of_devices_and_unknown_barcodes) {
  settings_.limits.devices = 2;
  settings_.limits.unknownBarcodes = 1;
  Serve();
  const auto hello = [this](const std::string& device) {
    return Post("/a/hello", R"({"device":")" + device + R"(","name":"n"})").status;
  };
  EXPECT_EQ(hello("d1"), 200);
  EXPECT_EQ(hello("d2"), 200);
  EXPECT_EQ(hello("d3"), 429);
  EXPECT_EQ(hello("d1"), 200) << "who takes part already is served";
  EXPECT_EQ(Get(Changes("0", "d3")).status, 429);
  EXPECT_EQ(Post("/a/unknown", R"({"device":"d1","barcode":"X1"})").status, 200);
  EXPECT_EQ(Post("/a/unknown", R"({"device":"d1","barcode":"X2"})").status, 400) << "not to be sent again";
}

}  // namespace
}  // namespace koru::test
