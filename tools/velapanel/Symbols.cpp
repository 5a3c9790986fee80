#include "tools/velapanel/Symbols.h"

namespace velapanel {
namespace {

using Gdiplus::Graphics;
using Gdiplus::GraphicsPath;
using Gdiplus::Pen;
using Gdiplus::PointF;
using Gdiplus::RectF;
using Gdiplus::SolidBrush;

// All symbols are drawn in a square of 100 by 100.
constexpr float kSide = 100;
constexpr float kLine = 8;

void AddRoundedBox(GraphicsPath& path, float left, float top, float width, float height,
                   float radius) {
    const float d = 2 * radius;
    path.StartFigure();
    path.AddArc(left, top, d, d, 180, 90);
    path.AddArc(left + width - d, top, d, d, 270, 90);
    path.AddArc(left + width - d, top + height - d, d, d, 0, 90);
    path.AddArc(left, top + height - d, d, d, 90, 90);
    path.CloseFigure();
}

void Camera(Graphics& graphics, const Pen&, const SolidBrush& brush) {
    GraphicsPath path;
    AddRoundedBox(path, 8, 28, 56, 46, 9);
    const PointF lens[] = {{70, 46}, {92, 32}, {92, 70}, {70, 56}};
    path.AddPolygon(lens, 4);
    graphics.FillPath(&brush, &path);
}

void Microphone(Graphics& graphics, const Pen& pen, const SolidBrush& brush) {
    GraphicsPath body;
    AddRoundedBox(body, 36, 8, 28, 50, 13.9F);
    graphics.FillPath(&brush, &body);
    graphics.DrawArc(&pen, 24.0F, 22.0F, 52.0F, 52.0F, 10, 160);
    graphics.DrawLine(&pen, 50.0F, 74.0F, 50.0F, 90.0F);
    graphics.DrawLine(&pen, 34.0F, 90.0F, 66.0F, 90.0F);
}

void Chat(Graphics& graphics, const Pen&, const SolidBrush& brush) {
    GraphicsPath path(Gdiplus::FillModeWinding);
    AddRoundedBox(path, 10, 16, 80, 54, 14);
    const PointF tail[] = {{26, 62}, {54, 62}, {26, 92}};
    path.AddPolygon(tail, 3);
    graphics.FillPath(&brush, &path);
}

void ShareScreen(Graphics& graphics, const Pen& pen, const SolidBrush& brush) {
    GraphicsPath screen;
    AddRoundedBox(screen, 8, 18, 84, 54, 8);
    graphics.DrawPath(&pen, &screen);
    graphics.DrawLine(&pen, 32.0F, 88.0F, 68.0F, 88.0F);
    const PointF arrow[] = {{50, 28}, {68, 47}, {56, 47}, {56, 62}, {44, 62}, {44, 47}, {32, 47}};
    graphics.FillPolygon(&brush, arrow, 7);
}

using Draw = void (*)(Graphics&, const Pen&, const SolidBrush&);
constexpr Draw kSymbols[kButtonCount] = {Camera, Microphone, Chat, ShareScreen};

}  // namespace

void DrawSymbol(Graphics& graphics, Action button, const RectF& square,
                const Gdiplus::Color& colour, bool isCrossed) {
    const Gdiplus::GraphicsState state = graphics.Save();
    graphics.TranslateTransform(square.X, square.Y);
    graphics.ScaleTransform(square.Width / kSide, square.Height / kSide);
    Pen pen(colour, kLine);
    pen.SetLineJoin(Gdiplus::LineJoinRound);
    const SolidBrush brush(colour);
    kSymbols[static_cast<std::size_t>(button)](graphics, pen, brush);
    if (isCrossed) graphics.DrawLine(&pen, 10.0F, 94.0F, 90.0F, 6.0F);
    graphics.Restore(state);
}

}  // namespace velapanel
