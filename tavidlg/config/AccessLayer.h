// The configuration access layer: how every dialog reads and writes server properties, fills its
// caption with the server's name and tells a clustered configuration. Failed reads are never reported;
// they leave the caller's default.
#pragma once

#include "entry/TaviGlobal.h"

#include <QString>

#include <velbrook/MailServer.h>
#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

class QWidget;

// Buffer sizes dialogs start with: commands and names, paths.
inline constexpr uint32_t kCommandBufferSize = 256;
inline constexpr uint32_t kPathBufferSize = 261;

// Reads a text property into value with a buffer of `size` bytes; on the more-data error it retries once
// with the size the store reports plus 10. Any failure leaves value empty and returns false.
TAVI_EXPORT bool ReadServerString(_tMailServer* server, const char* section, const char* name, QString& value,
                                  uint32_t size);
// Reads a number property; on failure value takes defaultValue and false is returned.
TAVI_EXPORT bool ReadServerNumber(_tMailServer* server, const char* section, const char* name, quint32& value,
                                  quint32 defaultValue = 0);
// Writes a text (type 1, size length plus one, UTF-8) or a number (type 4, size 4). True when the store
// returned exactly 1; on failure the reason is in GetLastError().
TAVI_EXPORT bool WriteServerString(_tMailServer* server, const char* section, const char* name,
                                   const QString& value);
TAVI_EXPORT bool WriteServerNumber(_tMailServer* server, const char* section, const char* name, quint32 value);
// Reads a server constant ("MachineName", "HostName") with a buffer of `size` bytes, no retry.
TAVI_EXPORT bool ReadServerConstant(_tMailServer* server, const char* name, QString& value, uint32_t size);

// Replaces "%1" (or "%1!s!") in the dialog's caption with the server's name. The caption as first seen
// is kept as the template, so a second call fills the template again.
TAVI_EXPORT void SetServerCaption(QWidget* dialog, _tMailServer* server);
// True when the configuration connector is not the embedded one and serves a cluster.
TAVI_EXPORT bool IsClusteredConfiguration(_tMailServer* server);
