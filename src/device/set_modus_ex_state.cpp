#include "device/set_modus_ex_state.h"

#include "device/set_modus_ex_clicks.h"
#include "device/set_modus_ex_lists.h"

#include <algorithm>
#include <utility>

namespace ModusEx {

State::State() {
    for (size_t i = 0; i < lists.size(); ++i)
        lists[i].codes = DesignedCodes(List(i));
    for (const Box box :
         {Box::Mode0, Box::Mode1, Box::Mode3, Box::Mode5, Box::RCV1, Box::Sort, Box::LongRepeat, Box::Repeat,
          Box::RCMM, Box::RStep56, Box::RC5, Box::RC6, Box::RC6Toggle})
        Enable(box, true);
    for (const List list : {List::Receiver1, List::Tolerance, List::Idle, List::Filter})
        Enable(list, true);
    for (const Text text : {Text::Timeout, Text::Toggle})
        Enable(text, true);
}

int State::Code(List list) const {
    const ListState& state = lists[size_t(list)];
    return state.index < 0 ? NoCode : state.codes[size_t(state.index)];
}

void State::SetOn(Box box, bool isOn) {
    if (std::exchange(boxes[size_t(box)].isOn, isOn) != isOn)
        BoxClicked(*this, box);
}

void State::Select(List list, int index) {
    ListState& state = lists[size_t(list)];
    const int known = index >= 0 && index < int(state.codes.size()) ? index : -1;
    if (std::exchange(state.index, known) != known)
        ListClicked(*this, list);
}

void State::SelectCode(List list, int code) {
    const std::vector<int>& codes = Codes(list);
    const auto found = std::find(codes.begin(), codes.end(), code);
    Select(list, found == codes.end() ? -1 : int(found - codes.begin()));
}

void State::SetContent(Text text, const QString& content) {
    if (std::exchange(texts[size_t(text)].content, content) != content)
        TextChanged(*this, text);
}

void State::RemoveEntry(List list, int code) {
    ListState& state = lists[size_t(list)];
    const int selected = Code(list);
    std::erase(state.codes, code);
    const auto kept = std::find(state.codes.begin(), state.codes.end(), selected);
    state.index = kept == state.codes.end() ? -1 : int(kept - state.codes.begin());
}

} // namespace ModusEx
