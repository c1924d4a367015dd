// The frames of the editor and their layout in the channel view and the function view.
#pragma once

#include "band_frame.h"
#include "channel_frame.h"
#include "global_settings_frame.h"
#include "key_frame.h"
#include "one_list_frames.h"
#include "record_frame.h"
#include "reset_time_frame.h"
#include "scan_frame.h"
#include "tts_frame.h"

class QStackedLayout;

namespace mr4500x {

// Owned by the panel, as its child widgets.
struct EditorViews {
  BandFrame* band;
  RecordFrame* record;
  ChannelFrame* channels;
  GlobalSettingsFrame* global;
  ScanFrame* scan;
  KeyFrame* keys;
  SelectCallFrame* selectCall;
  TtsFrame* tts;
  FiveToneFrame* fiveTone;
  ResetTimeFrame* resetTime;
  TuneFrame* tune;
  QStackedLayout* stack = nullptr; // the channel view, then the function view
};

// Lays the frames out on the two pages; the panel shows the first.
void ArrangeViews(QWidget& panel, EditorViews& views);

} // namespace mr4500x
