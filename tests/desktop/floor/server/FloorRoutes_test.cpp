// What devices ask of the server, and what they are answered.

#include <QJsonDocument>

#include "desktop/floor/server/JsonText.h"
#include "lines/LineColumns.h"
#include "tests/desktop/floor/server/ServerWorld.h"

namespace koru::test {
namespace {

class FloorRoutes : public ServerWorld {};

TEST_F(FloorRoutes, A_device_is_answered_its_count_its_store_its_counting_and_whether_figures_are_taken) {
  const HttpReply reply = Post("/a/hello", R"({"device":"d1","name":"Sara"})", 2);
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.body, R"({"count":2,"store":"انبار مركزي","counting":"00c0ffee00c0ffee","open":true})");
  ASSERT_EQ(session_->Devices().size(), 1U);
  EXPECT_EQ(session_->Devices()[0].name, "Sara");
  EXPECT_EQ(session_->Devices()[0].count, 2);
}

TEST_F(FloorRoutes, The_lines_have_key_code_name_unit_and_the_devices_own_figure) {
  ASSERT_TRUE(Type(2, FloorLines::ColumnOf(2), "7"));
  const QJsonObject lines = Get("/a/lines", 2).Json();
  EXPECT_EQ(lines["count"].toInt(), 2);
  EXPECT_TRUE(lines["open"].toBool());
  const QJsonArray all = lines["lines"].toArray();
  ASSERT_EQ(all.size(), 4);
  EXPECT_EQ(all[1].toArray()[0].toString(), "G2");
  EXPECT_EQ(all[1].toArray()[1].toInt(), 1);
  EXPECT_EQ(all[1].toArray()[5].toString(), "7");
  EXPECT_EQ(all[3].toArray()[0].toString(), "G1");
  EXPECT_EQ(all[3].toArray()[1].toInt(), 2);
}

TEST_F(FloorRoutes, A_figure_is_in_the_cell_when_the_device_has_its_answer) {
  const HttpReply reply = Post("/a/figures", Figure(1, "G2", "12.5"));
  EXPECT_EQ(StateOf(reply), "stored");
  EXPECT_EQ(Count({"G2", 1}, 1), "12.5");
  EXPECT_EQ(journal_.appended, "") << "all is on the disk";
  EXPECT_NE(journal_.synced.find("12.5"), std::string::npos);
}

TEST_F(FloorRoutes, A_poll_is_answered_when_a_figure_comes) {
  const std::string revision = Revision();
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision, "d9"), Authorized(1)));
  EXPECT_EQ(poll.Receive().Json()["open"].toBool(), true) << "the first answer says whether it is open";
  poll.Send(RequestText("GET", Changes(revision, "d9"), Authorized(1)));
  EXPECT_FALSE(poll.HasAnswer());
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(1, "G2", "12"))), "stored");
  const QJsonObject changes = poll.Receive().Json();
  EXPECT_EQ(changes["cells"].toArray(), Cells({"G2", 1, "12"}));
}

TEST_F(FloorRoutes,
       A_device_that_waits_hears_that_the_counting_is_closed_when_the_desk_ends_session_and_server) {
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(Revision()), Authorized(1)));
  EXPECT_EQ(poll.Receive().status, 200) << "the first answer says whether it is open";
  poll.Send(RequestText("GET", Changes(Revision()), Authorized(1)));
  EXPECT_FALSE(poll.HasAnswer());
  session_->Stop();
  server_.reset();
  EXPECT_EQ(poll.Receive().status, 401);
}

TEST_F(FloorRoutes, A_poll_is_answered_when_its_time_is_over_although_nothing_has_changed) {
  settings_.limits.poll = std::chrono::milliseconds(1);
  Serve();
  const std::string revision = Revision();
  for (int i = 0; i < 2; ++i) {
    const QJsonObject changes = Get(Changes(revision)).Json();
    EXPECT_EQ(std::to_string(changes["rev"].toInteger()), revision);
    EXPECT_FALSE(changes["lines"].toBool());
    EXPECT_TRUE(changes["cells"].toArray().isEmpty());
  }
}

TEST_F(FloorRoutes, A_poll_hears_nothing_of_other_counts) {
  const std::string revision = Revision();
  Get(Changes(revision));
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision), Authorized(1)));
  EXPECT_FALSE(poll.HasAnswer());
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(1, "G2", "12"), 2)), "stored");
  EXPECT_FALSE(poll.HasAnswer());
}

TEST_F(FloorRoutes, A_second_poll_of_a_device_takes_the_place_of_its_first) {
  const std::string revision = Revision();
  Get(Changes(revision));
  HttpClient first(server_->Port());
  first.Send(RequestText("GET", Changes(revision), Authorized(1)));
  EXPECT_FALSE(first.HasAnswer());
  HttpClient second(server_->Port());
  second.Send(RequestText("GET", Changes(revision), Authorized(1)));
  EXPECT_EQ(first.Receive().status, 200);
  EXPECT_FALSE(second.HasAnswer());
}

TEST_F(FloorRoutes, Lines_that_come_and_go_are_to_be_read_anew) {
  const std::string revision = Revision();
  Get(Changes(revision));
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision), Authorized(1)));
  EXPECT_FALSE(poll.HasAnswer());
  Lines().UserMoveTo(3, LineColumn::FirstCounting);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Lines().UserDeleteRow());
  EXPECT_TRUE(poll.Receive().Json()["lines"].toBool());
  EXPECT_EQ(Get("/a/lines").Json()["lines"].toArray().size(), 3);
}

TEST_F(FloorRoutes, Kept_lines_with_an_earlier_revision_are_brought_up_to_date_by_changes) {
  const std::string revision = Revision();
  Post("/a/figures", Figure(1, "G2", "12"));
  EXPECT_EQ(Revision(), revision) << "the lines are those that were made before";
  EXPECT_EQ(Get(Changes(revision)).Json()["cells"].toArray(), Cells({"G2", 1, "12"}));
}

TEST_F(FloorRoutes, Lines_are_compressed_where_the_device_reads_that) {
  const HttpReply packed = Ask(RequestText("GET", "/a/lines", Authorized(1) + "Accept-Encoding: gzip\r\n"));
  const HttpReply plain = Get("/a/lines");
  EXPECT_EQ(packed.Field("content-encoding"), "gzip");
  EXPECT_EQ(plain.Field("content-encoding"), "");
  EXPECT_EQ(packed.body, plain.body);
}

TEST_F(FloorRoutes, A_barcode_that_no_line_has_is_for_the_desk_to_see) {
  const HttpReply reply = Post("/a/unknown", R"({"device":"d1","barcode":"6260001"})", 3);
  EXPECT_EQ(reply.body, "{}");
  EXPECT_EQ(session_->Unknown(), (std::vector<UnknownBarcode>{{"6260001", 3, "d1"}}));
  EXPECT_NE(journal_.synced.find("6260001"), std::string::npos);
}

TEST_F(FloorRoutes, The_page_is_at_the_root_and_its_files_at_addresses_of_their_version) {
  const HttpReply page = Ask(RequestText("GET", "/", ""));
  EXPECT_EQ(page.status, 200);
  EXPECT_EQ(page.Field("content-type"), "text/html; charset=utf-8");
  EXPECT_EQ(page.Field("cache-control"), "max-age=86400");
  EXPECT_EQ(page.body.find("@VERSION@"), std::string::npos);
  const auto at = page.body.find("v/");
  ASSERT_NE(at, std::string::npos);
  const std::string file = "/" + page.body.substr(at, page.body.find('"', at) - at);
  const HttpReply plain = Ask(RequestText("GET", file, ""));
  const HttpReply packed = Ask(RequestText("GET", file, "Accept-Encoding: gzip, br\r\n"));
  EXPECT_EQ(plain.Field("cache-control"), "max-age=31536000, immutable");
  EXPECT_EQ(packed.Field("content-encoding"), "gzip");
  EXPECT_EQ(packed.body, plain.body);
  EXPECT_EQ(Ask(RequestText("GET", "/v/0000000000000000/page.js", "")).status, 404);
}

TEST_F(FloorRoutes, A_file_is_asked_for_without_its_content) {
  HttpClient client(server_->Port());
  client.Send(RequestText("HEAD", "/", ""));
  const HttpReply head = client.Receive(false);
  EXPECT_EQ(head.status, 200);
  EXPECT_NE(head.Field("content-length"), "0");
  client.Send(RequestText("GET", "/", ""));
  EXPECT_EQ(client.Receive().status, 200) << "the connection is in step";
}

TEST_F(FloorRoutes, Nothing_outside_the_page_is_a_file) {
  for (const char* path : {"/index.html", "/page.js", "/..", "/v/../index.html", "/%2e%2e/etc/passwd",
                           "//etc/passwd", "/a", "/a/", "/a/other", "/v/%00/page.js", "/favicon.ico"}) {
    EXPECT_EQ(Get(path).status, 404) << path;
  }
}

TEST_F(FloorRoutes, Another_method_is_answered_with_the_right_one) {
  const HttpReply deleted = Ask(RequestText("DELETE", "/", ""));
  EXPECT_EQ(deleted.status, 405);
  EXPECT_EQ(deleted.Field("allow"), "GET, HEAD");
  const HttpReply asked = Get("/a/figures");
  EXPECT_EQ(asked.status, 405);
  EXPECT_EQ(asked.Field("allow"), "POST");
  EXPECT_EQ(Post("/a/lines", "{}").Field("allow"), "GET");
}

TEST_F(FloorRoutes, All_answers_forbid_scripts_of_others_frames_and_guessed_types) {
  for (const HttpReply& reply : {Ask(RequestText("GET", "/", "")), Get("/a/lines"), Get("/none"),
                                 Ask(RequestText("GET", "/a/lines", "")), Post("/a/figures", "x")}) {
    EXPECT_NE(reply.Field("content-security-policy").find("default-src 'none'"), std::string::npos);
    EXPECT_NE(reply.Field("content-security-policy").find("frame-ancestors 'none'"), std::string::npos);
    EXPECT_EQ(reply.Field("x-content-type-options"), "nosniff");
    EXPECT_EQ(reply.Field("referrer-policy"), "no-referrer");
    EXPECT_EQ(reply.wire.find("Access-Control"), std::string::npos);
  }
  EXPECT_EQ(Get("/a/lines").Field("cache-control"), "no-store");
}

TEST_F(FloorRoutes, Another_site_is_not_allowed_to_ask) {
  const HttpReply preflight =
      Ask(RequestText("OPTIONS", "/a/figures",
                      "Origin: http://evil.example\r\nAccess-Control-Request-Method: POST\r\n"
                      "Access-Control-Request-Headers: authorization\r\n"));
  EXPECT_EQ(preflight.status, 405);
  EXPECT_EQ(preflight.wire.find("Access-Control-Allow"), std::string::npos);
}

TEST_F(FloorRoutes, Only_the_code_of_a_count_admits) {
  const std::string lines = "/a/lines";
  EXPECT_EQ(Ask(RequestText("GET", lines, "")).status, 401);
  for (const char* code : {"", "x", "AAAAAAAAAAAAAAAAAAAAAA", "Basic AAAA"}) {
    EXPECT_EQ(Ask(RequestText("GET", lines, std::string("Authorization: Bearer ") + code + "\r\n")).status,
              401);
  }
  EXPECT_EQ(Ask(RequestText("GET", lines, "Authorization: " + session_->Code(1) + "\r\n")).status, 401);
  EXPECT_EQ(Ask(RequestText("GET", lines + "?code=" + session_->Code(1), "")).status, 401);
}

TEST_F(FloorRoutes, A_renewed_code_shuts_out_who_has_the_old_one_also_where_a_poll_is_held) {
  const std::string old = Authorized(1);
  const std::string revision = Revision();
  Get(Changes(revision));
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision), old));
  EXPECT_FALSE(poll.HasAnswer());
  session_->RenewCode(1);
  EXPECT_EQ(Ask(RequestText("GET", "/a/lines", old)).status, 401);
  EXPECT_EQ(Get("/a/lines").status, 200);
  ASSERT_TRUE(Type(2, FloorLines::ColumnOf(1), "77"));
  const HttpReply reply = poll.Receive();
  EXPECT_EQ(reply.status, 401);
  EXPECT_EQ(reply.body.find("77"), std::string::npos);
}

TEST_F(FloorRoutes, Requests_that_are_not_what_the_call_expects_are_bad) {
  const std::string item = R"({"seq":1,"barcode":"G1","ordinal":1,"op":"set","text":"1","base":""})";
  const auto figures = [](const std::string& items) { return R"({"device":"d1","items":)" + items + "}"; };
  ASSERT_EQ(Post("/a/figures", figures("[" + item + "]")).status, 200);
  std::string many = item;
  for (std::size_t i = 0; i < 500; ++i) many += "," + item;
  for (const std::string& body : std::vector<std::string>{
           std::string(),
           std::string("{"),
           std::string("[]"),
           std::string("null"),
           figures("{}"),
           figures("[1]"),
           figures("[{}]"),
           figures("[" + many + "]"),
           R"({"items":[]})",
           R"({"device":"d 1","items":[]})",
           R"({"device":")" + std::string(65, 'd') + R"(","items":[]})",
           figures(R"([{"seq":1.5,"barcode":"G1","ordinal":1,"op":"set","text":"1","base":""}])"),
           figures(R"([{"seq":-1,"barcode":"G1","ordinal":1,"op":"set","text":"1","base":""}])"),
           figures(R"([{"seq":1e300,"barcode":"G1","ordinal":1,"op":"set","text":"1","base":""}])"),
           figures(R"([{"seq":"1","barcode":"G1","ordinal":1,"op":"set","text":"1","base":""}])"),
           figures(R"([{"seq":1,"barcode":"","ordinal":1,"op":"set","text":"1","base":""}])"),
           figures(R"([{"seq":1,"barcode":"G\u00001","ordinal":1,"op":"set","text":"1","base":""}])"),
           figures(R"([{"seq":1,"barcode":"G1","ordinal":0,"op":"set","text":"1","base":""}])"),
           figures(R"([{"seq":1,"barcode":"G1","ordinal":1,"op":"mul","text":"1","base":""}])"),
           figures(R"([{"seq":1,"barcode":"G1","ordinal":1,"op":"set","text":1,"base":""}])"),
           figures(R"([{"seq":1,"barcode":"G1","ordinal":1,"op":"set","text":"1"}])"),
           std::string("\xff\xfe"),
           std::string(100'000, '[')}) {
    EXPECT_EQ(Post("/a/figures", body).status, 400) << body.substr(0, 200);
  }
  EXPECT_EQ(Post("/a/hello", R"({"device":"d1"})").status, 400);
  EXPECT_EQ(Post("/a/unknown", R"({"device":"d1","barcode":5})").status, 400);
  for (const char* query : {"", "?since=1", "?device=d1", "?since=-1&device=d1", "?since=1x&device=d1",
                            "?since=99999999999999999999&device=d1", "?since=1&device=d%201"}) {
    EXPECT_EQ(Get(std::string("/a/changes") + query).status, 400) << query;
  }
}

TEST_F(FloorRoutes, Only_requests_for_this_machine_are_served) {
  const std::string port = std::to_string(server_->Port());
  const auto status = [this](const std::string& host) {
    return Ask("GET / HTTP/1.1\r\n" + host + "\r\n").status;
  };
  for (const std::string& host :
       std::vector<std::string>{std::string("localhost"), "127.0.0.1:" + port, std::string("192.0.2.7"),
                                "192.0.2.7:" + port, std::string("desk.example"), "DESK.example:" + port}) {
    EXPECT_EQ(status("Host: " + host + "\r\n"), 200) << host;
  }
  for (const std::string& host : std::vector<std::string>{
           std::string("evil.example"), "evil.example:" + port, std::string(), std::string("192.0.2.7:1"),
           "192.0.2.7:" + port + ":1", "desk.example.evil.example:" + port, "desk.example:", "192.0.2.70"}) {
    EXPECT_EQ(status("Host: " + host + "\r\n"), 421) << host;
  }
  EXPECT_EQ(status(""), 400) << "HTTP/1.1 demands a host";
  EXPECT_EQ(status("Host: localhost\r\nHost: evil.example\r\n"), 400);
}

TEST_F(FloorRoutes, The_address_that_a_counter_opens_has_the_code_where_no_server_sees_it) {
  EXPECT_EQ(server_->Url(2, "192.0.2.7"),
            "http://192.0.2.7:" + std::to_string(server_->Port()) + "/#" + session_->Code(2));
}

TEST_F(FloorRoutes, No_stock_rate_money_or_other_count_is_in_anything_that_is_sent) {
  database.Execute(
      "update tblInventoryCountingDetail set SystemCounting=87654.25, BaseValue=45678.5, "
      "FirstCounting=71717, "
      "SecondCounting=72727, ThirdCounting=73737, AcceptedCounting=72727, ContradictionCounting=14927.25 "
      "where CountingID=20");
  StartAnew();
  std::string wire;
  const std::string revision = Revision();
  for (const HttpReply& reply :
       {Get("/a/lines"), Get(Changes("0")), Post("/a/hello", R"({"device":"d1","name":"n"})"),
        Post("/a/figures", Figure(1, "G2", "5", "set", "71717")), Get(Changes(revision)),
        Post("/a/figures", Figure(2, "G2", "6", "set", "1")), Get("/a/lines"),
        Post("/a/unknown", R"({"device":"d1","barcode":"G9"})")}) {
    EXPECT_EQ(reply.status, 200);
    wire += reply.wire + reply.body;
  }
  EXPECT_NE(wire.find("71717"), std::string::npos) << "its own count is there";
  const double money = 72727 * 45678.5;
  for (const std::string& hidden :
       {std::string("87654"), std::string("45678"), std::string("72727"), std::string("73737"),
        std::string("14927"), std::to_string(static_cast<long long>(money)), std::string("رضايي"),
        std::string("كاظمي")}) {
    EXPECT_EQ(wire.find(hidden), std::string::npos) << hidden;
  }
}

TEST_F(FloorRoutes, Names_of_goods_arrive_as_they_are_whatever_is_in_them) {
  const std::vector<std::string> names = {"<img src=x onerror=alert(1)>",
                                          "\"quotes\" and \\ strokes",
                                          "\xE2\x80\xAEtxet desrever\xE2\x80\xAC",
                                          "line\nfeed\ttab\x01\x1f\x7f",
                                          "</script><!--",
                                          "\xF0\x9F\x93\xA6 \xE2\x80\xA8 \xE2\x80\x8C"};
  for (const std::string& name : names) {
    std::string sql = "update tblGood set Name='";
    database.Execute(sql + name + "' where Barcode='G2'");
    StartAnew();
    const QJsonArray line = Get("/a/lines").Json()["lines"].toArray().at(1).toArray();
    EXPECT_EQ(line[3].toString().toStdString(), name);
  }
}

TEST_F(FloorRoutes, Texts_that_are_not_utf_8_still_make_json) {
  std::string json;
  AppendJson(json, "a\xff\xc3(\xed\xa0\x80\xf4\x90\x80\x80\xc0\x80\xe2\x82z");
  const QJsonDocument read = QJsonDocument::fromJson("[" + QByteArray::fromStdString(json) + "]");
  ASSERT_TRUE(read.isArray());
  const QString text = read.array().at(0).toString();
  EXPECT_TRUE(text.startsWith(QStringLiteral("a\uFFFD\uFFFD(")) && text.endsWith('z')) << text.toStdString();
}

}  // namespace
}  // namespace koru::test
