#include <levelwidgets/host/form/message.h>

#include <levelwidgets/host/form/message_form.h>
#include <levelwidgets/host/form/message_keys.h>
#include <levelwidgets/host/form/modal.h>
#include <levelwidgets/host/form/system_question.h>
#include <levelwidgets/platform/message_boxes.h>

namespace levelwidgets {

namespace {

using Forms = std::vector<std::shared_ptr<Form>>;

void ShowSystemMessage(Platform& platform, MessageBoxApi& boxes, const MessageOptions& options,
                       const ButtonSet& set, const Forms& others, MessageAnswer on_answered) {
  const MessageBoxRequest request{
      .text = options.text,
      .title = options.title,
      .style = static_cast<std::uint32_t>(options.style) | static_cast<std::uint32_t>(set.buttons_of)};
  AskSystem(
      platform, others,
      [&boxes, &set, request](WindowHandle owner) {
        MessageBoxRequest owned = request;
        owned.owner = owner;
        return set.NumberOf(boxes.MessageBoxA(owned));
      },
      std::move(on_answered));
}

std::shared_ptr<Form> ShowOwnMessage(Platform& platform, const MessageOptions& options, const ButtonSet* set,
                                     const Forms& others, MessageAnswer on_answered) {
  const std::vector<std::string> captions = options.set ? set->Captions() : options.buttons;
  const auto form = MakeMessageForm(platform, options, captions);
  const auto answer = std::make_shared<std::int32_t>(0);
  const MessageAnswer press = [answer, weak = std::weak_ptr(form)](std::int32_t number) {
    const auto open = weak.lock();
    *answer = number;
    if (open && !open->Close()) *answer = 0;  // a listener keeps it open
  };
  const auto count = static_cast<std::int32_t>(captions.size());
  AnswerByButtons(*form, count, press);
  if (set) {
    AnswerAsTheSystem(*form, *set, press);
  } else {
    MessageButton(*form, count)->SetCancel(true);
  }
  ShowModal(form, others, [answer, told = std::move(on_answered)] {
    if (told) told(*answer);
  });
  return form;
}

}  // namespace

std::shared_ptr<Form> ShowMessage(Platform& platform, const MessageOptions& options, const Forms& others,
                                  MessageAnswer on_answered) {
  const ButtonSet* const set = options.set ? &SetOf(*options.set) : SetWithCaptions(options.buttons);
  MessageBoxApi* const boxes = set ? MessageBoxesOf(platform) : nullptr;
  if (!boxes) return ShowOwnMessage(platform, options, set, others, std::move(on_answered));
  ShowSystemMessage(platform, *boxes, options, *set, others, std::move(on_answered));
  return nullptr;
}

}  // namespace levelwidgets
