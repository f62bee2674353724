#include "engine/msg_daemon.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace qen {
namespace {

struct Handler final : Object {
  std::int32_t OnMessage(const Msg& message) override {
    received.push_back(message.id);
    if (action) action(message);
    return answer;
  }

  std::int32_t answer = 0;
  std::function<void(const Msg&)> action;
  std::vector<std::uint32_t> received;
};

using Ids = std::vector<std::uint32_t>;

TEST(MsgDaemon, DeliversByCategoryInOrderAndReturnsTheLastAnswer) {
  MsgDaemon daemon;
  Handler a, b, c;
  a.answer = 3;
  b.answer = 5;
  daemon.AddHandler(&a, 0x1);
  daemon.AddHandler(&b, 0x6);
  daemon.AddHandler(&c, 0x4);
  daemon.AddHandler(nullptr, 0x1);
  EXPECT_EQ(daemon.ProcMsg(1, 0, 0, 0x3), 5);
  EXPECT_EQ(daemon.ProcMsg(2, 0, 0, 0x4), 5) << "an answer of 0 says nothing";
  EXPECT_EQ(daemon.ProcMsg(3, 0, 0, 0x8), 0);
  EXPECT_EQ(a.received, Ids({1}));
  EXPECT_EQ(b.received, Ids({1, 2}));
  EXPECT_EQ(c.received, Ids({2}));
}

TEST(MsgDaemon, BitsAreAddedAndTakenAway) {
  MsgDaemon daemon;
  Handler a;
  daemon.AddHandler(&a, 0x1);
  daemon.AddHandler(&a, 0x2);
  daemon.ProcMsg(1, 0, 0, 0x3);
  daemon.RemoveHandler(&a, 0x1);
  daemon.ProcMsg(2, 0, 0, 0x1);
  daemon.ProcMsg(3, 0, 0, 0x2);
  daemon.RemoveHandler(&a, 0x2);
  daemon.RemoveHandler(&a, 0x2);
  daemon.ProcMsg(4, 0, 0, 0xFFFFFFFF);
  EXPECT_EQ(a.received, Ids({1, 3})) << "one delivery a message, none without bits";
}

TEST(MsgDaemon, HandlersMayChangeEverythingDuringADelivery) {
  MsgDaemon daemon;
  Handler first, removed, last;
  std::vector<std::unique_ptr<Handler>> added;
  first.action = [&](const Msg& message) {
    if (message.id != 1) return;
    daemon.RemoveHandler(&removed, 0xFF);
    for (int i = 0; i < 100; ++i) {
      added.push_back(std::make_unique<Handler>());
      daemon.AddHandler(added.back().get(), 0x1);
    }
    daemon.ProcMsg(2, 0, 0, 0x1);
  };
  last.action = [&](const Msg& message) {
    if (message.id == 2) daemon.RemoveHandler(&last, 0xFF);
  };
  daemon.AddHandler(&first, 0x1);
  daemon.AddHandler(&removed, 0x1);
  daemon.AddHandler(&last, 0x1);
  daemon.ProcMsg(1, 0, 0, 0x1);
  EXPECT_EQ(first.received, Ids({1, 2}));
  EXPECT_EQ(removed.received, Ids());
  EXPECT_EQ(last.received, Ids({2})) << "removed in the nested delivery, so the outer one passes it";
  EXPECT_EQ(added.back()->received, Ids({2})) << "registered in time for the nested message only";

  daemon.AddHandler(&removed, 0x1);
  daemon.ProcMsg(3, 0, 0, 0x1);
  EXPECT_EQ(removed.received, Ids({3}));
}

}  // namespace
}  // namespace qen
