// SPDX-License-Identifier: MIT
// Pictures of OpenCV.
#include "opencv_peer.h"

#include <opencv2/imgproc.hpp>

namespace kelu {

struct OpenCvFill::Pictures {
    cv::Mat source, work;
};

OpenCvFill::OpenCvFill(const int* pixels, int side, long pitch) : pictures_(std::make_unique<Pictures>())
{
    const cv::Mat words(side, side, CV_8UC4, const_cast<int*>(pixels), static_cast<std::size_t>(pitch)); // is only read
    cv::cvtColor(words, pictures_->source, cv::COLOR_BGRA2BGR);
}

OpenCvFill::~OpenCvFill() = default;

void OpenCvFill::restore() { pictures_->source.copyTo(pictures_->work); }

void OpenCvFill::fill(int x, int y) { cv::floodFill(pictures_->work, {x, y}, {0xf0, 0xc0, 0x40}, nullptr, {}, {}, 4); }

void OpenCvResize::resize(int w, int h) const
{
    const cv::Mat picture(side_, side_, CV_8UC4, const_cast<int*>(pixels_), static_cast<std::size_t>(pitch_));
    cv::Mat shown;
    cv::resize(picture, shown, {w, h}, 0, 0, cv::INTER_NEAREST);
}

} // namespace kelu
