// The layout file: whatever it holds, the panel that is made of it is within its bounds.

#include "fuzz/check.h"
#include "panel/layout.h"

namespace {

/// What the panel shows, in words, each element within its bounds.
QString Words(const PanelModel& panel) {
    QString words = panel.PanelTitle;
    const auto add = [&words](const auto& elements) {
        Check(elements.size() <= LayoutLimit);
        for (const LayoutElement& element : elements) {
            for (const int number :
                 {element.rect.left, element.rect.top, element.rect.width, element.rect.height})
                Check(qint16(number) == number);
            Check(element.backColor.value_or(0) <= 0xFFFFFF && element.foreColor.value_or(0) <= 0xFFFFFF);
            Check(!element.caption.isEmpty());
            words += element.caption + QString::number(element.rect.left + element.fontSize);
        }
    };
    add(panel.cmdModeP);
    add(panel.lblMain);
    words += u'|';
    add(panel.cmdMode);
    add(panel.lblRem);
    add(panel.cmdRem);
    for (size_t i = 1; i <= panel.cmdRem.size(); ++i)
        Check(!panel.RemoteList[i].isEmpty() && !panel.CommandList[i].isEmpty());
    for (const auto* buttons : {&panel.cmdModeP, &panel.cmdMode})
        for (const PageButtonElement& button : *buttons)
            Check(!button.section.isEmpty());
    return words;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    const QString text = DecodeFileText(QByteArrayView(data, qsizetype(size)));
    PanelModel panel;
    ReadSection(panel, text, MainSection);
    Check(panel.cmdMode.empty() && panel.lblRem.empty());
    const QString permanent = Words(panel);
    PanelModel same;
    ReadSection(same, text, MainSection);
    Check(Words(same) == permanent);
    const size_t pages = std::min<size_t>(2, panel.cmdModeP.size());
    for (size_t page = 0; page < pages; ++page) {
        UnloadPanel(panel);
        const QString section = panel.cmdModeP[page].section;
        if (ReadSection(panel, text, section) == LayoutResult::Loaded && section != MainSection)
            Check(Words(panel).startsWith(permanent.section(u'|', 0, 0)));
    }
    return 0;
}
