#include "bindings/c/answer.h"
#include "bindings/c/form_user.h"
#include "bindings/c/front_ends.h"
#include "core/platform/code_page.h"
#include "frontends/scripted/scripted_toolkit.h"

/// The user that routines of the host play.
namespace fiscalon::c {

namespace {

static_assert(static_cast<int>(MessageStyle::Information) == FISCALON_BOX_INFORMATION);
static_assert(static_cast<int>(MessageButtons::YesNo) == FISCALON_BUTTONS_YES_NO);
static_assert(static_cast<int>(MessageAnswer::No) == FISCALON_ANSWER_NO);

MessageAnswer AnswerOf(const fiscalon_scripted_user& host, const BoxRequest& box) {
  const std::string text = ToUtf8(box.text);
  const std::string title = ToUtf8(box.title);
  const fiscalon_box told = {.size = sizeof(fiscalon_box),
                             .text = text.c_str(),
                             .title = title.c_str(),
                             .style = static_cast<int32_t>(box.style),
                             .buttons = static_cast<int32_t>(box.buttons),
                             .default_answer = static_cast<int32_t>(box.DefaultAnswer()),
                             .closed_answer = static_cast<int32_t>(box.ClosedAnswer())};
  int32_t answer = told.closed_answer;
  CallHost("on_box", host.on_box, host.context, &told, &answer);
  const bool isOne = answer >= FISCALON_ANSWER_OK && answer <= FISCALON_ANSWER_NO;
  if (!isOne || !box.Offers(static_cast<MessageAnswer>(answer)))
    Fail(FISCALON_ERROR_CALLBACK, "on_box of the host gave the answer " + std::to_string(answer) +
                                      ", which the box \"" + text + "\" does not offer.");
  return static_cast<MessageAnswer>(answer);
}

std::unique_ptr<Toolkit> PlayedBy(const fiscalon_scripted_user& host) {
  auto toolkit = std::make_unique<ScriptedToolkit>();
  toolkit->onForm = [host](Form& form, UserDriver& user) {
    if (host.on_form == nullptr)
      return;
    const FormHandle handle(form, user);
    CallHost("on_form", host.on_form, host.context, handle.Get());
  };
  if (host.on_box != nullptr)
    toolkit->onMessage = [host](const BoxRequest& box) { return AnswerOf(host, box); };
  toolkit->onBeep = [host] { CallHost("on_beep", host.on_beep, host.context); };
  toolkit->onHelp = [host](std::string_view file, int32_t context) {
    CallHost("on_help", host.on_help, host.context, ToUtf8(file).c_str(), context);
  };
  if (host.on_handler != nullptr)
    toolkit->onEvent = [host](const std::string& handler) {
      CallHost("on_handler", host.on_handler, host.context, ToUtf8(handler).c_str());
    };
  return toolkit;
}

}  // namespace

}  // namespace fiscalon::c

using namespace fiscalon::c;

extern "C" int fiscalon_use_scripted_user(const fiscalon_scripted_user* user) {
  return Answer([&] {
    ExpectStruct(user);
    InstallFrontEnd(kScripted, PlayedBy(*user));
  });
}
