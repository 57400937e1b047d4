#pragma once

#include "analysis/Beat.h"

#include <array>
#include <deque>
#include <vector>

/// What the normal beats of a person look like, and the ectopic ones.
namespace pulselark {

/// Running mean shapes of the normal beats and of up to three kinds of ectopic ones. Shapes are compared in
/// form and size: twice their product over the sum of their squares, 1 for equal ones, 0 and less for those
/// that have nothing in common.
class BeatShapes {
public:
    struct Match {
        double Agreement = 0;
        double Lag = 0; ///< samples that the beat has to move for it
    };

    bool Known() const { return known_; }
    /// The shape of the beat that is most like the others becomes the normal one.
    void Learn(const std::deque<Beat>& beats);
    void AddNormal(const Beat& beat);
    /// A beat of another shape. One that is like none of the others replaces the least frequent.
    void AddEctopic(const Beat& beat);

    Match Normal(const Beat& beat) const { return Compare(beat, normal_); }
    /// Agreement with the most similar kind of ectopic beats that was seen at least three times.
    double Ectopic(const Beat& beat) const;

private:
    using Shape = std::array<double, Beat::ShapeSize>;
    struct Kind {
        Shape Mean{};
        double Count = 0;
    };

    static Match Compare(const Beat& beat, const Shape& shape);
    static Shape ShapeOf(const Beat& beat);
    static void Approach(Shape& mean, const Beat& beat, double pace);

    Shape normal_{};
    std::vector<Kind> ectopic_;
    bool known_ = false;
};

} // namespace pulselark
