#include "tools/velapanel/Painter.h"

#include "tools/velapanel/ButtonLook.h"
#include "tools/velapanel/Fonts.h"
#include "tools/velapanel/Symbols.h"

namespace velapanel {
namespace {

using Gdiplus::Graphics;
using Gdiplus::GraphicsPath;
using Gdiplus::Pen;
using Gdiplus::RectF;
using Gdiplus::SolidBrush;
using Gdiplus::StringFormat;

RectF ToRect(const Box& box) { return {box.left, box.top, box.width, box.height}; }

class Painter {
 public:
    Painter(Graphics& graphics, const PanelLayout& layout, const PanelView& view)
        : graphics_(graphics), layout_(layout), view_(view) {}

    void Draw() {
        graphics_.Clear(kBackground);
        RoundedBox(layout_.surface, 18, kSurface, kSurfaceEdge);
        for (const ActionInfo& info : kActions) {
            const auto index = static_cast<std::size_t>(info.action);
            if (index < kButtonCount) {
                DrawButton(info);
            } else {
                DrawKey(info);
            }
        }
        DrawHaptic();
        DrawReports();
        if (!view_.state.isPlugged) DrawAbsence();
    }

 private:
    float Scaled(float length) const { return length * layout_.scale; }

    void RoundedBox(const Box& box, float radius, const Colour& fill, const Colour& edge) {
        const float d = 2 * Scaled(radius);
        GraphicsPath path;
        path.AddArc(box.left, box.top, d, d, 180, 90);
        path.AddArc(box.Right() - d, box.top, d, d, 270, 90);
        path.AddArc(box.Right() - d, box.Bottom() - d, d, d, 0, 90);
        path.AddArc(box.left, box.Bottom() - d, d, d, 90, 90);
        path.CloseFigure();
        const SolidBrush brush(fill);
        const Pen pen(edge, Scaled(1.5F));
        graphics_.FillPath(&brush, &path);
        graphics_.DrawPath(&pen, &path);
    }

    void Text(const std::wstring& text, const Box& box, float size, const Colour& colour,
              Gdiplus::StringAlignment alignment, FontKind kind = FontKind::Proportional) {
        const Gdiplus::Font font = MakeFont(kind, Scaled(size));
        StringFormat format(Gdiplus::StringFormatFlagsNoWrap);
        format.SetAlignment(alignment);
        format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
        format.SetTrimming(Gdiplus::StringTrimmingEllipsisCharacter);
        const SolidBrush brush(colour);
        graphics_.DrawString(text.c_str(), static_cast<INT>(text.size()), &font, ToRect(box),
                             &format, &brush);
    }

    const Colour& EdgeOf(Action action) const {
        return view_.focused == action ? kFocus : kSurfaceEdge;
    }

    void DrawButton(const ActionInfo& info) {
        const Box& box = layout_.BoxOf(info.action);
        const ButtonLook look = LookOf(info.action, view_.state.lights, view_.breathSeconds);
        RoundedBox(box, 12, kButtonFace, EdgeOf(info.action));
        const float line = Scaled(24);
        const float room = box.height - 2 * line - Scaled(34);
        const float side = (std::min)(room, box.width * 0.55F);
        const RectF square(box.left + (box.width - side) / 2,
                           box.top + Scaled(10) + (room - side) / 2, side, side);
        DrawSymbol(graphics_, info.action, square, look.light, look.isCrossed);
        RoundedBox(LampOf(layout_, info.action), 4, look.light, look.light);
        Text(std::wstring(info.label) + L"  [" + info.key + L"]",
             {box.left, box.Bottom() - 2 * line, box.width, line}, 15, kText,
             Gdiplus::StringAlignmentCenter);
        Text(look.caption, {box.left, box.Bottom() - line - Scaled(4), box.width, line}, 14,
             kQuietText, Gdiplus::StringAlignmentCenter);
    }

    void DrawKey(const ActionInfo& info) {
        const Box& box = layout_.BoxOf(info.action);
        RoundedBox(box, 8, kKeyFace, EdgeOf(info.action));
        const bool isPlugIn = info.action == Action::Plug && !view_.state.isPlugged;
        Text(std::wstring(isPlugIn ? L"Plug in" : info.label) + L"  [" + info.key + L"]", box, 15,
             kText, Gdiplus::StringAlignmentCenter);
    }

    void DrawHaptic() {
        const Box& box = layout_.haptic;
        const std::optional<unsigned> level = view_.state.hapticLevel;
        const Box label{box.left, box.top, Scaled(170), box.height};
        Text(level ? L"Haptic level " + std::to_wstring(*level) : L"No haptic touchpad", label, 15,
             level ? kText : kQuietText, Gdiplus::StringAlignmentNear);
        if (!level) return;
        Box bar{label.Right(), box.top + box.height / 3, box.Right() - label.Right(),
                box.height / 3};
        RoundedBox(bar, 3, kButtonFace, kSurfaceEdge);
        bar.width = (std::max)(bar.width * static_cast<float>(*level) / 100, Scaled(6));
        if (*level != 0) RoundedBox(bar, 3, kFocus, kFocus);
    }

    void DrawReports() {
        const float line = Scaled(20);
        Box row{layout_.reports.left, layout_.reports.top, layout_.reports.width, line};
        Text(view_.notice.empty() ? L"Reports, the newest first" : view_.notice, row, 14,
             view_.notice.empty() ? kQuietText : kOffLight, Gdiplus::StringAlignmentNear);
        for (const ReportLine& report : view_.state.reports) {
            row.top += line;
            if (row.Bottom() > layout_.reports.Bottom()) break;
            const auto widen = [](const std::string& text) {
                return std::wstring(text.begin(), text.end());
            };
            const Box kind{row.left, row.top, Scaled(52), line};
            const Box bytes{kind.Right(), row.top, Scaled(264), line};
            const Box fields{bytes.Right(), row.top, row.Right() - bytes.Right(), line};
            Text(widen(report.kind), kind, 12.5F, kQuietText, Gdiplus::StringAlignmentNear);
            Text(widen(report.bytes), bytes, 12, kText, Gdiplus::StringAlignmentNear,
                 FontKind::Fixed);
            Text(widen(report.fields), fields, 12.5F, kText, Gdiplus::StringAlignmentNear);
        }
    }

    void DrawAbsence() {
        const SolidBrush veil(Gdiplus::Color(200, 32, 34, 38));
        graphics_.FillRectangle(&veil, ToRect(layout_.surface));
        Text(L"The touchpad is unplugged", layout_.surface, 26, kText,
             Gdiplus::StringAlignmentCenter);
    }

    Graphics& graphics_;
    const PanelLayout& layout_;
    const PanelView& view_;
};

}  // namespace

Box LampOf(const PanelLayout& layout, Action button) {
    const Box& box = layout.BoxOf(button);
    const float width = box.width * 0.4F;
    const float height = 8 * layout.scale;
    const float captions = 48 * layout.scale;
    return {box.left + (box.width - width) / 2, box.Bottom() - captions - 16 * layout.scale, width,
            height};
}

void Paint(Canvas& canvas, const PanelView& view) {
    const PanelLayout layout = LayOut(canvas.Width(), canvas.Height());
    canvas.Draw([&](Graphics& graphics) {
        graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
        graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAliasGridFit);
        Painter(graphics, layout, view).Draw();
    });
}

}  // namespace velapanel
