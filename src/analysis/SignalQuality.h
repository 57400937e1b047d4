#pragma once

#include <array>

/// How far the ECG of one channel can be trusted, second by second.
///
/// A second's figure is 1 less what speaks against it: lost samples, a flat line, samples that stand at one
/// limit (clipping), and noise: the power of the second differences (muscle and mains, above the QRS band)
/// beside that of the first differences smoothed to the QRS band. The measures follow Clifford, Azuaje and
/// McSharry, Advanced Methods and Tools for ECG Data Analysis (2006), chapter 3; their weights are this
/// system's own.
namespace pulselark {

class SignalQuality {
public:
    enum class Step { Bad = 0, Doubtful = 1, Good = 2 };

    /// Below the first figure a second is bad, below the second doubtful.
    static constexpr float BadBelow = 0.35F;
    static constexpr float DoubtfulBelow = 0.7F;

    /// Takes one sample in panel units at 128 a second, NaN for a lost one. True if it completed a second.
    bool Push(float sample);

    /// Figure of the last complete second, 0 to 1; 0 before the first.
    float Figure() const { return figure_; }
    Step Light() const;

private:
    static constexpr int SecondSize = 128;

    float FigureOfSecond() const;

    std::array<float, SecondSize> second_{};
    int count_ = 0;
    float figure_ = 0;
};

} // namespace pulselark
