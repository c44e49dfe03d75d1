#pragma once

#include "platform/printing/Page.h"

#include <QByteArray>

class QPagedPaintDevice;
class QPainter;

/// Draws a page at its true size, whatever the resolution of the painter's device.
void drawPage(QPainter &painter, const Page &page);

/// Draws each on a page of its own. False when the device refuses.
bool drawPages(QPagedPaintDevice &device, const QList<Page> &pages);

/// The pages as a PDF of A4 sheets; empty when they cannot be drawn.
QByteArray pdfOf(const QList<Page> &pages, const QString &title);
