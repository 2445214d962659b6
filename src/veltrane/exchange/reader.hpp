// Reads a file of some norm and turns its roots into shapes.
#pragma once

#include "veltrane/exchange/progress.hpp"
#include "veltrane/exchange/read_process.hpp"
#include "veltrane/exchange/session.hpp"
#include "veltrane/exchange/status.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace veltrane {

/// Usual course: ReadFile, TransferRoots, OneShape. A norm's reader says what its roots are.
class ExchangeReader {
public:
    /// A reader with a session of its own.
    ExchangeReader();
    /// A reader on a session; `scratch` makes the session forget its model.
    ExchangeReader(Ref<ExchangeSession> session, bool scratch);
    virtual ~ExchangeReader() = default;

    const Ref<ExchangeSession>& Session() const { return session_; }
    /// Attaches another session. What was read and transferred before is forgotten.
    void SetSession(Ref<ExchangeSession> session, bool scratch);
    /// False when no norm of that name is recorded.
    bool SetNorm(std::string_view name) { return session_->SelectNorm(name); }

    /// Reads a file into a new current model. Done when there is a model, whose checks then hold what was
    /// wrong with the file; Error when the file could not be read at all, with a reason in Problem(); Void
    /// without a norm.
    ExchangeStatus ReadFile(const std::string& name);
    const std::string& Problem() const { return problem_; }
    /// The current model; null before anything was read.
    const Ref<ExchangeModel>& Model() const { return session_->Model(); }

    virtual int NbRootsForTransfer();
    /// `number` runs from 1 to NbRootsForTransfer(); null otherwise.
    Ref<Transient> RootForTransfer(int number);

    /// Transfers one record. Done when it gave a shape; Fail when it gave none; Stop when the user asked
    /// for it; Void without a norm or a model.
    ExchangeStatus TransferEntity(const Ref<Transient>& record, const Progress& progress = {});
    /// Transfers all roots and returns the number of shapes that came of them.
    int TransferRoots(const Progress& progress = {});

    /// Shapes of all transfers since the last ReadFile or ClearShapes.
    int NbShapes() const { return static_cast<int>(shapes_.size()); }
    /// `number` runs from 1 to NbShapes(); anything else throws std::out_of_range.
    const kernel::Shape& Shape(int number) const { return shapes_.at(static_cast<std::size_t>(number) - 1); }
    void ClearShapes() { shapes_.clear(); }
    /// The only shape, a compound of several, or null when there is none.
    kernel::Shape OneShape() const;

    /// Results and messages of the transfers, record by record; never null. Messages of reading stand in
    /// the checks of the model.
    const Ref<ReadProcess>& Process() const { return process_; }

protected:
    /// What NbRootsForTransfer counts; filled by the norm's reader, emptied by ReadFile and SetSession.
    std::vector<Ref<Transient>>& ChangeRoots() { return roots_; }

private:
    void forget();

    Ref<ExchangeSession> session_;
    Ref<ReadProcess> process_;
    std::vector<Ref<Transient>> roots_;
    std::vector<kernel::Shape> shapes_;
    std::string problem_;
};

}  // namespace veltrane
