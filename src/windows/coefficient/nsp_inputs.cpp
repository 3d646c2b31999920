#include "windows/coefficient/nsp_inputs.h"

#include "text/number_text.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"

namespace tv::windows {

using text::val;

compute::nsp::NspInputs nsp_inputs(Program& program) {
    compute::nsp::NspInputs in;
    if (Form6* f6 = program.if_loaded<Form6>()) {
        if (f6->pushoverPoints.allocated())
            for (const compute::PushoverPoint& p : f6->pushoverPoints.raw()) in.curve.push_back({p.Displacement, p.BaseForce});
        const double Xy = val(f6->txtXC2.text()), Yy = val(f6->txtYC2.text());
        if (Xy != 0 && Yy != 0) in.yield = compute::nsp::CurvePoint{Xy, Yy};
        in.fit_end = {val(f6->Text2.text()), val(f6->Text3.text())};
        in.Ki = val(f6->txtKi.text());
        in.Ti = val(f6->txtTI.text());
        in.Te = val(f6->txtTEF.caption());
    }
    if (Form8* f8 = program.if_loaded<Form8>()) {
        in.W = val(f8->Text10.text());
        in.window_method = f8->coefficient_inputs();
    }
    return in;
}

}  // namespace tv::windows
