#pragma once

#include "Platform/Film/FilmPlayback.h"

#include <atomic>
#include <gst/app/gstappsink.h>
#include <gst/gst.h>

namespace tomcatto {

struct ObjectUnref
{
    void operator()(gpointer object) const { gst_object_unref(object); }
};
using ElementPointer = std::unique_ptr<GstElement, ObjectUnref>;

/// The elements that play one film: a file, its decoders, the sound if there is a device for it, and a sink that hands
/// frames over as the decoder made them. Its maker's thread only, except for the callbacks of its own threads.
class FilmPipeline final
{
public:
    /// Loads what any film needs.
    static void load();

    /// @param film gets the frames, and outlives this
    FilmPipeline(FilmPlayback &film, const std::string &source);
    FilmPipeline(const FilmPipeline &) = delete;
    FilmPipeline &operator=(const FilmPipeline &) = delete;
    ~FilmPipeline();

    /// Plays or stands still, is heard or not. A film that is not ready stands still: what it is shown and heard with
    /// joins it while it is being read, and would not agree on when it began.
    void follow(const FilmWish &wish, bool isReady);
    void rewind();

private:
    [[nodiscard]] ElementPointer makeSink();
    void openSound();
    void connectPicture(GstPad *pad);
    void connectSound(GstPad *pad);

    static gboolean isDecoded(GstElement *decoder, GstPad *pad, GstCaps *caps, gpointer self);
    static void prepareDecoder(GstBin *bin, GstBin *inner, GstElement *element, gpointer self);
    static GstPadProbeReturn chooseThreads(GstPad *pad, GstPadProbeInfo *info, gpointer self);
    static void connectPad(GstElement *decoder, GstPad *pad, gpointer self);
    static GstFlowReturn takePreroll(GstAppSink *sink, gpointer self);
    static GstFlowReturn takeSample(GstAppSink *sink, gpointer self);
    static GstPadProbeReturn answerSink(GstPad *pad, GstPadProbeInfo *info, gpointer self);
    static GstBusSyncReply hear(GstBus *bus, GstMessage *message, gpointer self);
    GstFlowReturn show(GstSample *sample);
    void readTags(GstEvent *event);

    FilmPlayback &m_film;
    ElementPointer m_pipeline;
    ElementPointer m_sink;
    // Only where there is something to hear it with.
    ElementPointer m_volume;
    ElementPointer m_sound;
    bool m_hasPicture = false;
    bool m_hasSound = false;
    std::atomic_int m_angle = 0;
    std::atomic_bool m_isMirrored = false;
};

}
