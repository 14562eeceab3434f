// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MediaFormats.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>

namespace korvel::platform::media {
namespace {

constexpr AVCodecID kCodings[] = {
    AV_CODEC_ID_MP1,
    AV_CODEC_ID_MP2,
    AV_CODEC_ID_MP3,
    AV_CODEC_ID_AAC,
    AV_CODEC_ID_AAC_LATM,
    AV_CODEC_ID_VORBIS,
    AV_CODEC_ID_OPUS,
    AV_CODEC_ID_SPEEX,
    AV_CODEC_ID_FLAC,
    AV_CODEC_ID_ALAC,
    AV_CODEC_ID_WAVPACK,
    AV_CODEC_ID_APE,
    AV_CODEC_ID_TTA,
    AV_CODEC_ID_TAK,
    AV_CODEC_ID_SHORTEN,
    AV_CODEC_ID_MP4ALS,
    AV_CODEC_ID_MUSEPACK7,
    AV_CODEC_ID_MUSEPACK8,
    AV_CODEC_ID_WMAV1,
    AV_CODEC_ID_WMAV2,
    AV_CODEC_ID_WMAPRO,
    AV_CODEC_ID_WMALOSSLESS,
    AV_CODEC_ID_WMAVOICE,
    AV_CODEC_ID_AC3,
    AV_CODEC_ID_EAC3,
    AV_CODEC_ID_DTS,
    AV_CODEC_ID_TRUEHD,
    AV_CODEC_ID_MLP,
    AV_CODEC_ID_AMR_NB,
    AV_CODEC_ID_AMR_WB,
    AV_CODEC_ID_GSM,
    AV_CODEC_ID_GSM_MS,
    AV_CODEC_ID_ILBC,
    AV_CODEC_ID_QCELP,
    AV_CODEC_ID_COOK,
    AV_CODEC_ID_RA_144,
    AV_CODEC_ID_RA_288,
    AV_CODEC_ID_SIPR,
    AV_CODEC_ID_ATRAC1,
    AV_CODEC_ID_ATRAC3,
    AV_CODEC_ID_ATRAC3P,
    AV_CODEC_ID_QDM2,
    AV_CODEC_ID_MACE3,
    AV_CODEC_ID_MACE6,
    AV_CODEC_ID_NELLYMOSER,
    AV_CODEC_ID_DSD_LSBF,
    AV_CODEC_ID_DSD_MSBF,
    AV_CODEC_ID_DSD_LSBF_PLANAR,
    AV_CODEC_ID_DSD_MSBF_PLANAR,
    AV_CODEC_ID_ADPCM_IMA_WAV,
    AV_CODEC_ID_ADPCM_IMA_QT,
    AV_CODEC_ID_ADPCM_MS,
    AV_CODEC_ID_ADPCM_YAMAHA,
    AV_CODEC_ID_ADPCM_SWF,
    AV_CODEC_ID_ADPCM_G722,
    AV_CODEC_ID_ADPCM_G726,
    AV_CODEC_ID_ADPCM_CT,
};

bool isOfRecordings(AVCodecID coding) {
  const bool isPcm = coding >= AV_CODEC_ID_FIRST_AUDIO && coding < AV_CODEC_ID_ADPCM_IMA_QT;
  return isPcm || std::ranges::find(kCodings, coding) != std::end(kCodings);
}

}  // namespace

const char* containers() {
  return "wav,w64,aiff,au,caf,voc,sox,ircam,nistsphere,"
         "mp3,aac,loas,flac,ogg,ape,wv,tta,tak,mpc,mpc8,shn,"
         "ac3,eac3,dts,dtshd,truehd,mlp,amr,amrnb,amrwb,qcp,gsm,aea,oma,dsf,iff,"
         "mov,matroska,avi,asf,xwma,flv,rm,mpeg,mpegts,dv,mxf,nut";
}

const std::string& decoders() {
  static const std::string names = [] {
    std::string joined;
    void* place = nullptr;
    while (const AVCodec* codec = av_codec_iterate(&place))
      if (av_codec_is_decoder(codec) && isOfRecordings(codec->id))
        joined.append(joined.empty() ? "" : ",").append(codec->name);
    return joined;
  }();
  return names;
}

const AVCodec* decoderOf(int coding) {
  const auto id = static_cast<AVCodecID>(coding);
  return isOfRecordings(id) ? avcodec_find_decoder(id) : nullptr;
}

}  // namespace korvel::platform::media
