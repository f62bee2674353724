#include "engine/msg_daemon.h"

#include <gtest/gtest.h>

#include <functional>
#include <list>
#include <string>

namespace qen {
namespace {

// Writes down what it gets: its letter and the message's number.
struct Handler final : Object {
  Handler(char name, std::string& all, std::function<std::int32_t(std::uint32_t id)> what = {})
      : letter(name), record(all), action(std::move(what)) {}

  std::int32_t OnMessage(const Msg& message) override {
    record += letter + std::to_string(message.id) + ' ';
    return action ? action(message.id) : 0;
  }

  char letter;
  std::string& record;
  std::function<std::int32_t(std::uint32_t id)> action;
};

TEST(MsgDaemon, DeliversByCategoryInOrderAndReturnsTheLastAnswer) {
  std::string record;
  Handler a('a', record, [](auto) { return 3; }), b('b', record, [](auto) { return 5; }), c('c', record);
  MsgDaemon daemon;
  const auto send = [&](std::uint32_t id, std::uint32_t category) {
    record += '=' + std::to_string(daemon.ProcMsg(id, 0, 0, category)) + ' ';
  };
  for (const auto& [handler, category] : {std::pair(&a, 0x1U), {&b, 0x2U}, {&c, 0x4U}, {&b, 0x4U}, {nullptr, 0x1U}}) {
    daemon.AddHandler(handler, category);
  }
  for (const std::uint32_t category : {0x3U, 0x4U, 0x6U, 0x8U}) send(category, category);
  daemon.RemoveHandler(&b, 0x2);
  for (const std::uint32_t category : {0x2U, 0x4U}) send(category, category);
  for (int i = 0; i < 2; ++i) daemon.RemoveHandler(&b, 0x4);
  send(9, 0xFFFFFFFF);
  EXPECT_EQ(record, "a3 b3 =5 b4 c4 =5 b6 c6 =5 =0 =0 b4 c4 =5 a9 c9 =3 ");
}

TEST(MsgDaemon, HandlersMayChangeEverythingDuringADelivery) {
  std::string record;
  std::list<Handler> added;
  MsgDaemon daemon;
  Handler removed('r', record);
  Handler first('f', record, [&](std::uint32_t id) {
    if (id != 1) return 0;
    daemon.RemoveHandler(&removed, 0xFF);
    for (int i = 0; i < 100; ++i) daemon.AddHandler(&added.emplace_back('+', record), i < 98 ? 0x2U : 0x1U);
    return daemon.ProcMsg(2, 0, 0, 0x1);
  });
  Handler last('l', record, [&](std::uint32_t id) {
    if (id == 2) daemon.RemoveHandler(&last, 0xFF);
    return 0;
  });
  for (Handler* handler : {&first, &removed, &last}) daemon.AddHandler(handler, 0x1);
  daemon.ProcMsg(1, 0, 0, 0x1);
  EXPECT_EQ(record, "f1 f2 l2 +2 +2 ") << "removed ones get nothing more, added ones the messages that follow";
  daemon.AddHandler(&removed, 0x1);
  daemon.ProcMsg(3, 0, 0, 0x1);
  EXPECT_EQ(record, "f1 f2 l2 +2 +2 f3 +3 +3 r3 ");
}

}  // namespace
}  // namespace qen
