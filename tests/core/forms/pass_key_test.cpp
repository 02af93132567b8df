#include "core/forms/pass_key.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "core/forms/button.h"
#include "core/forms/form.h"

namespace fiscalon {
namespace {

/// A class with a door for `Holder` alone.
template <class Holder>
struct Room {
  bool Enter(PassKey<Holder> /*key*/) { return true; }
};

struct Guest {
  bool Enters(Room<Guest>& room) const { return room.Enter({}); }
};

template <class Room>
concept OpenToAll = requires(Room& room) {
  room.Enter({});
};

template <class Control>
concept ClickableByAll = requires(Control& control) {
  control.Clicked({});
};

template <class Form>
concept FocusableByAll = requires(Form& form, Control& control) {
  form.SetFocus({}, control);
};

TEST(PassKey, OpensToItsHolderAlone) {
  Room<Guest> room;
  EXPECT_TRUE(Guest().Enters(room));
  EXPECT_FALSE(OpenToAll<Room<Guest>>);
}

TEST(PassKey, CannotBeMadeByOthers) {
  EXPECT_FALSE((std::is_default_constructible_v<PassKey<Guest>>));
  EXPECT_FALSE((std::is_aggregate_v<PassKey<Guest>>));
}

TEST(PassKey, KeepsHandlersFromActingAsTheUser) {
  EXPECT_FALSE(ClickableByAll<Button>);
  EXPECT_FALSE(FocusableByAll<Form>);
}

}  // namespace
}  // namespace fiscalon
